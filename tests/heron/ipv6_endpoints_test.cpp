// A TCP listener and a UDP socket on ::1, where the system's network stack offers IPv6.
#include "test_sockets.h"
#include <iphlpapi.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "heron.h"
#include "list_helpers.h"

namespace heron::test {
namespace {

TEST(IPv6Endpoints, ListsAListenerOnIPv6Loopback) {
    WinsockSession winsock;
    ASSERT_TRUE(winsock.Started());
    const Socket listener = ListenOnLoopback(AF_INET6);
    if (!listener) GTEST_SKIP() << "the network stack refuses a listener on ::1 (error " << WSAGetLastError() << ")";
    const unsigned port = LocalPortOf(listener);

    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolTcp6, port).processId));
    const auto item = FindByPorts(list, kProtocolTcp6, port, 0);
    ASSERT_TRUE(item.has_value()) << "no TCPv6 endpoint on port " << port;
    EXPECT_EQ(std::wstring(L"TCPv6"), item->GetProtocolStr());
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_LISTEN), item->GetState());
    const auto address = LocalAddressOf(listener);
    EXPECT_EQ(0, std::memcmp(address.data(), item->GetLocalIP6Address(), address.size()));
    EXPECT_EQ(0u, item->GetLocalAddress());
}

TEST(IPv6Endpoints, ListsAUdpSocketOnIPv6Loopback) {
    WinsockSession winsock;
    ASSERT_TRUE(winsock.Started());
    const Socket udp = BindUdpOnLoopback(AF_INET6);
    if (!udp) GTEST_SKIP() << "the network stack refuses a UDP socket on ::1 (error " << WSAGetLastError() << ")";

    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolUdp6, LocalPortOf(udp)).processId));
    const auto item = FindByPorts(list, kProtocolUdp6, LocalPortOf(udp), 0);
    ASSERT_TRUE(item.has_value()) << "no UDPv6 endpoint on port " << LocalPortOf(udp);
    EXPECT_EQ(std::wstring(L"UDPv6"), item->GetProtocolStr());
    EXPECT_EQ(std::wstring(), item->GetStateStr());
}

}  // namespace
}  // namespace heron::test
