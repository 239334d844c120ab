// The list's life: Init, Delete and Init again, reads out of range, a list that was never set up.
#include "test_sockets.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>

#include "heron.h"
#include "list_helpers.h"

namespace heron::test {
namespace {

TEST(ConnectionList, EmptyBeforeTheFirstQuery) {
    _CONNECTIONLIST list;
    EXPECT_EQ(0u, list.GetItemCount());
    ASSERT_EQ(1, list.Init());
    EXPECT_EQ(0u, list.GetItemCount());
    EXPECT_EQ(0u, list.GetItem(0).GetGenericID());
}

TEST(ConnectionList, ReadingPastTheEndGivesAnEmptyEndpoint) {
    WinsockSession winsock;
    const Socket udp = BindUdpOnLoopback(AF_INET);
    ASSERT_TRUE(udp);
    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolUdp, LocalPortOf(udp)).processId));
    ASSERT_GT(list.GetItemCount(), 0u);
    const _CONNECTIONOBJECT past = list.GetItem(list.GetItemCount());
    EXPECT_EQ(0u, past.GetGenericID());
    EXPECT_EQ(0u, past.GetLocalPort());
    EXPECT_EQ(std::wstring(), past.GetLocalHostname());
}

TEST(ConnectionList, DeleteEmptiesAndInitStartsOver) {
    WinsockSession winsock;
    const Socket udp = BindUdpOnLoopback(AF_INET);
    ASSERT_TRUE(udp);
    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolUdp, LocalPortOf(udp)).processId));
    ASSERT_TRUE(FindByPorts(list, kProtocolUdp, LocalPortOf(udp), 0).has_value());

    EXPECT_EQ(1, list.Delete());
    EXPECT_EQ(0u, list.GetItemCount());
    EXPECT_EQ(0, list.ResolveAddresses());   // nothing to resolve in a deleted list
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolUdp, LocalPortOf(udp)).processId));
    EXPECT_TRUE(FindByPorts(list, kProtocolUdp, LocalPortOf(udp), 0).has_value());
}

TEST(ConnectionList, AZeroedListCanBeSetUpAgain) {
    // The program zeroes a reused record that holds a list and then calls Init: that must work.
    alignas(_CONNECTIONLIST) unsigned char storage[sizeof(_CONNECTIONLIST)];
    std::memset(storage, 0, sizeof storage);
    auto* list = reinterpret_cast<_CONNECTIONLIST*>(storage);
    EXPECT_EQ(0u, list->GetItemCount());
    ASSERT_EQ(1, list->Init());
    EXPECT_EQ(1, list->QueryProcessList(GetCurrentProcessId()));
    EXPECT_EQ(1, list->Delete());
}

TEST(ConnectionList, AProcessThatDoesNotExistHasNoEndpoints) {
    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    // Process ids are multiples of four, so this one never names a process.
    EXPECT_EQ(1, list.QueryProcessList(GetCurrentProcessId() + 1));
    EXPECT_EQ(0u, list.GetItemCount());
}

TEST(ConnectionObject, CopiesAreIndependentValues) {
    WinsockSession winsock;
    const Socket udp = BindUdpOnLoopback(AF_INET);
    ASSERT_TRUE(udp);
    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolUdp, LocalPortOf(udp)).processId));
    const auto item = FindByPorts(list, kProtocolUdp, LocalPortOf(udp), 0);
    ASSERT_TRUE(item.has_value());
    const _CONNECTIONOBJECT copy = *item;
    list.Delete();   // the copy does not depend on the list
    EXPECT_EQ(item->GetGenericID(), copy.GetGenericID());
    EXPECT_EQ(LocalPortOf(udp), copy.GetLocalPort());
    EXPECT_EQ(std::wstring(L"UDP"), copy.GetProtocolStr());
}

}  // namespace
}  // namespace heron::test
