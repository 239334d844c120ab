// The endpoint list against sockets of the test process (a TCP listener, a connected pair and a UDP socket on
// 127.0.0.1, and on ::1 where the stack offers IPv6) and a listener of a child process: rows, identities,
// host names, and the list's own life.
#include "test_sockets.h"
#include <iphlpapi.h>

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "child_process.h"
#include "heron.h"
#include "list_helpers.h"
#include "message_pump.h"
#include "test_files.h"

namespace heron::test {
namespace {

// The four octets packed the way the library reports IPv4 addresses: first octet in the lowest byte.
unsigned PackedIPv4(const std::array<std::uint8_t, 16>& bytes) {
    return bytes[0] | (bytes[1] << 8) | (bytes[2] << 16) | (static_cast<unsigned>(bytes[3]) << 24);
}

bool SameBytes(const std::array<std::uint8_t, 16>& expected, const unsigned char* seen) {
    return std::memcmp(expected.data(), seen, expected.size()) == 0;
}

class OwnEndpoints : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(winsock_.Started());
        listener_ = ListenOnLoopback(AF_INET);
        ASSERT_TRUE(listener_) << "listen on 127.0.0.1: " << WSAGetLastError();
        listenerPort_ = LocalPortOf(listener_);
        client_ = ConnectToLoopback(AF_INET, listenerPort_);
        ASSERT_TRUE(client_) << "connect: " << WSAGetLastError();
        server_ = AcceptOne(listener_);
        ASSERT_TRUE(server_) << "accept: " << WSAGetLastError();
        udp_ = BindUdpOnLoopback(AF_INET);
        ASSERT_TRUE(udp_) << "bind UDP: " << WSAGetLastError();
        clientPort_ = LocalPortOf(client_);
        udpPort_ = LocalPortOf(udp_);
        owner_ = OwnerOf(kProtocolTcp, listenerPort_);
        ASSERT_EQ(1, list_.Init());
        ASSERT_EQ(1, list_.QueryProcessList(owner_.processId));
    }

    WinsockSession winsock_;
    Socket listener_, client_, server_, udp_;
    unsigned listenerPort_ = 0, clientPort_ = 0, udpPort_ = 0;
    EndpointOwner owner_;
    _CONNECTIONLIST list_;
};

using Identity = std::tuple<int, unsigned, unsigned, unsigned, unsigned>;

std::map<Identity, unsigned> IdsByIdentity(const _CONNECTIONLIST& list) {
    std::map<Identity, unsigned> ids;
    for (const _CONNECTIONOBJECT& item : ItemsOf(list)) {
        ids[{item.GetProtocol(), item.GetLocalAddress(), item.GetLocalPort(), item.GetRemoteAddress(),
             item.GetRemotePort()}] = item.GetGenericID();
    }
    return ids;
}

TEST_F(OwnEndpoints, AreListedWithTheirStatesAddressesAndStableDistinctIds) {
    if (owner_.ownersReported) {
        EXPECT_EQ(GetCurrentProcessId(), owner_.processId);
    }
    const auto listener = FindByPorts(list_, kProtocolTcp, listenerPort_, 0);
    ASSERT_TRUE(listener.has_value()) << "no TCP endpoint on port " << listenerPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_LISTEN), listener->GetState());
    EXPECT_EQ(std::wstring(L"LISTEN"), listener->GetStateStr());
    EXPECT_EQ(std::wstring(L"TCP"), listener->GetProtocolStr());
    EXPECT_EQ(PackedIPv4(LocalAddressOf(listener_)), listener->GetLocalAddress());
    const std::array<std::uint8_t, 16> zero{};   // an IPv4 endpoint has no IPv6 addresses
    EXPECT_TRUE(SameBytes(zero, listener->GetLocalIP6Address()));
    EXPECT_TRUE(SameBytes(zero, listener->GetRemoteIP6Address()));

    const auto client = FindByPorts(list_, kProtocolTcp, clientPort_, listenerPort_);
    ASSERT_TRUE(client.has_value()) << "no client end " << clientPort_ << " -> " << listenerPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_ESTAB), client->GetState());
    EXPECT_EQ(std::wstring(L"ESTABLISHED"), client->GetStateStr());
    EXPECT_EQ(PackedIPv4(LocalAddressOf(listener_)), client->GetRemoteAddress());
    const auto server = FindByPorts(list_, kProtocolTcp, listenerPort_, clientPort_);
    ASSERT_TRUE(server.has_value()) << "no server end " << listenerPort_ << " -> " << clientPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_ESTAB), server->GetState());
    EXPECT_EQ(client->GetLocalAddress(), server->GetRemoteAddress());

    const auto udp = FindByPorts(list_, kProtocolUdp, udpPort_, 0);
    ASSERT_TRUE(udp.has_value()) << "no UDP endpoint on port " << udpPort_;
    EXPECT_EQ(std::wstring(L"UDP"), udp->GetProtocolStr());
    EXPECT_EQ(0u, udp->GetState());
    EXPECT_EQ(std::wstring(), udp->GetStateStr());
    EXPECT_EQ(0u, udp->GetRemoteAddress());
    EXPECT_EQ(PackedIPv4(LocalAddressOf(udp_)), udp->GetLocalAddress());

    if (listener->GetCreationTimeLi() == 0) {
        EXPECT_EQ(0, listener->GetCreationTime().wYear) << "no creation time from the system: none shown";
    } else {
        FILETIME now{};
        GetSystemTimeAsFileTime(&now);
        EXPECT_LE(listener->GetCreationTimeLi(), (static_cast<unsigned long long>(now.dwHighDateTime) << 32) | now.dwLowDateTime);
        SYSTEMTIME today{};
        GetLocalTime(&today);
        EXPECT_LE(listener->GetCreationTime().wYear, today.wYear);
        EXPECT_NE(0, listener->GetCreationTime().wYear);
    }

    const auto items = ItemsOf(list_);
    ASSERT_GE(items.size(), 4u);
    std::set<unsigned> distinct;
    for (const auto& item : items) {
        EXPECT_NE(0u, item.GetGenericID());
        distinct.insert(item.GetGenericID());
    }
    EXPECT_EQ(items.size(), distinct.size());
    const auto first = IdsByIdentity(list_);
    ASSERT_EQ(1, list_.QueryProcessList(owner_.processId));
    const auto second = IdsByIdentity(list_);
    for (const auto& [identity, id] : first) {
        // Only this test's own sockets: where owners are not reported the list holds every process's endpoints,
        // and other programs' sockets come and go between the two queries.
        const unsigned port = std::get<2>(identity);
        if (port != listenerPort_ && port != clientPort_ && port != udpPort_) continue;
        const auto again = second.find(identity);
        ASSERT_NE(second.end(), again) << "endpoint vanished between two queries";
        EXPECT_EQ(id, again->second);
    }

    udp_.Close();
    ASSERT_EQ(1, list_.QueryProcessList(owner_.processId));
    EXPECT_FALSE(FindByPorts(list_, kProtocolUdp, udpPort_, 0).has_value()) << "a closed socket leaves the list";
    EXPECT_TRUE(FindByPorts(list_, kProtocolTcp, listenerPort_, 0).has_value());
}

// Resolving returns after a bounded wait each call; a name the resolver is slow to find shows at a later
// call, and one address has one name wherever it appears, in this list and the next. 0.0.0.0 gets none.
TEST_F(OwnEndpoints, HostNamesAreLookedUpInBoundedTimeAndShared) {
    std::optional<_CONNECTIONOBJECT> listener;
    for (int round = 0; round < 100; ++round) {
        if (round > 0) Sleep(50);
        EXPECT_EQ(1, list_.ResolveAddresses());
        listener = FindByPorts(list_, kProtocolTcp, listenerPort_, 0);
        if (!listener || listener->GetLocalHostname()[0] != L'\0') break;
    }
    ASSERT_TRUE(listener.has_value());
    ASSERT_NE(0u, listener->GetGenericID());
    const std::wstring name = listener->GetLocalHostname();
    const auto client = FindByPorts(list_, kProtocolTcp, clientPort_, listenerPort_);   // 127.0.0.1 at both ends
    ASSERT_TRUE(client.has_value());
    EXPECT_EQ(name, client->GetLocalHostname());
    EXPECT_EQ(name, client->GetRemoteHostname());
    const auto udp = FindByPorts(list_, kProtocolUdp, udpPort_, 0);
    ASSERT_TRUE(udp.has_value());
    EXPECT_EQ(0u, udp->GetRemoteAddress());
    EXPECT_EQ(std::wstring(), udp->GetRemoteHostname());
    if (name.empty()) GTEST_SKIP() << "the resolver has no name for 127.0.0.1";
    EXPECT_NE(std::wstring(L"127.0.0.1"), name);

    _CONNECTIONLIST other;   // shows the name found before without resolving
    ASSERT_EQ(1, other.Init());
    ASSERT_EQ(1, other.QueryProcessList(owner_.processId));
    const auto again = FindByPorts(other, kProtocolTcp, listenerPort_, 0);
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(name, again->GetLocalHostname());
}

TEST_F(OwnEndpoints, CopiesOutliveTheListAndDeleteEmptiesItUntilInitStartsOver) {
    const _CONNECTIONOBJECT past = list_.GetItem(list_.GetItemCount());
    EXPECT_EQ(0u, past.GetGenericID());
    EXPECT_EQ(0u, past.GetLocalPort());
    EXPECT_EQ(std::wstring(), past.GetLocalHostname());
    const auto item = FindByPorts(list_, kProtocolUdp, udpPort_, 0);
    ASSERT_TRUE(item.has_value());
    const _CONNECTIONOBJECT copy = *item;

    EXPECT_EQ(1, list_.Delete());
    EXPECT_EQ(item->GetGenericID(), copy.GetGenericID());
    EXPECT_EQ(udpPort_, copy.GetLocalPort());
    EXPECT_EQ(std::wstring(L"UDP"), copy.GetProtocolStr());
    EXPECT_EQ(0u, list_.GetItemCount());
    EXPECT_EQ(0, list_.ResolveAddresses());   // nothing to resolve in a deleted list
    ASSERT_EQ(1, list_.Init());
    ASSERT_EQ(1, list_.QueryProcessList(owner_.processId));
    EXPECT_TRUE(FindByPorts(list_, kProtocolUdp, udpPort_, 0).has_value());
}

TEST(ConnectionList, EmptyBeforeTheFirstQueryForNoProcessAndAfterZeroing) {
    _CONNECTIONLIST list;
    EXPECT_EQ(0u, list.GetItemCount());
    ASSERT_EQ(1, list.Init());
    EXPECT_EQ(0u, list.GetItemCount());
    EXPECT_EQ(0u, list.GetItem(0).GetGenericID());
    // Process ids are multiples of four, so this one never names a process.
    EXPECT_EQ(1, list.QueryProcessList(GetCurrentProcessId() + 1));
    EXPECT_EQ(0u, list.GetItemCount());

    // The program zeroes a reused record that holds a list and then calls Init: that must work.
    alignas(_CONNECTIONLIST) unsigned char storage[sizeof(_CONNECTIONLIST)];
    std::memset(storage, 0, sizeof storage);
    auto* zeroed = reinterpret_cast<_CONNECTIONLIST*>(storage);
    EXPECT_EQ(0u, zeroed->GetItemCount());
    ASSERT_EQ(1, zeroed->Init());
    EXPECT_EQ(1, zeroed->QueryProcessList(GetCurrentProcessId()));
    EXPECT_EQ(1, zeroed->Delete());
}

TEST(IPv6Endpoints, ListsAListenerAndAUdpSocketOnIPv6Loopback) {
    WinsockSession winsock;
    ASSERT_TRUE(winsock.Started());
    const Socket listener = ListenOnLoopback(AF_INET6);
    const Socket udp = BindUdpOnLoopback(AF_INET6);
    if (!listener || !udp) GTEST_SKIP() << "the network stack refuses sockets on ::1 (error " << WSAGetLastError() << ")";
    const unsigned port = LocalPortOf(listener);
    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolTcp6, port).processId));
    const auto item = FindByPorts(list, kProtocolTcp6, port, 0);
    ASSERT_TRUE(item.has_value()) << "no TCPv6 endpoint on port " << port;
    EXPECT_EQ(std::wstring(L"TCPv6"), item->GetProtocolStr());
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_LISTEN), item->GetState());
    EXPECT_TRUE(SameBytes(LocalAddressOf(listener), item->GetLocalIP6Address()));
    EXPECT_EQ(0u, item->GetLocalAddress());

    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolUdp6, LocalPortOf(udp)).processId));
    const auto udpItem = FindByPorts(list, kProtocolUdp6, LocalPortOf(udp), 0);
    ASSERT_TRUE(udpItem.has_value()) << "no UDPv6 endpoint on port " << LocalPortOf(udp);
    EXPECT_EQ(std::wstring(L"UDPv6"), udpItem->GetProtocolStr());
    EXPECT_EQ(std::wstring(), udpItem->GetStateStr());
}

TEST(OtherProcess, ItsListenerIsInItsListAndNotInOurs) {
    const std::wstring portFile =
        lmvx_test::TestTempFolder() + L"lmvx_listener_" + std::to_wstring(GetCurrentProcessId()) + L".txt";
    DeleteFileW(portFile.c_str());
    lmvx_test::ChildProcess holder(L"sockets \"" + portFile + L"\" lmvx_never_set_" + std::to_wstring(GetCurrentProcessId()));
    ASSERT_TRUE(holder.Started()) << "cannot start the test child: " << GetLastError();
    std::wstring text;   // the listener's port first, once the child's sockets are open
    lmvx_test::PumpUntil([&] { return !(text = lmvx_test::ReadWholeFile(portFile)).empty() || !holder.IsRunning(); },
                         20000);
    const unsigned port = text.empty() ? 0 : static_cast<unsigned>(std::stoul(text));
    ASSERT_NE(0u, port) << "the test child opened no listener";
    if (!OwnerOf(kProtocolTcp, port).ownersReported) GTEST_SKIP() << kNoOwnersReason;

    _CONNECTIONLIST theirs, ours;
    ASSERT_EQ(1, theirs.Init());
    ASSERT_EQ(1, theirs.QueryProcessList(holder.Pid()));
    const auto listener = FindByPorts(theirs, kProtocolTcp, port, 0);
    ASSERT_TRUE(listener.has_value()) << "the holder's listener on port " << port << " is not in its list";
    EXPECT_EQ(std::wstring(L"LISTEN"), listener->GetStateStr());
    ASSERT_EQ(1, ours.Init());
    ASSERT_EQ(1, ours.QueryProcessList(GetCurrentProcessId()));
    EXPECT_FALSE(FindByPorts(ours, kProtocolTcp, port, 0).has_value());
    DeleteFileW(portFile.c_str());
}

}  // namespace
}  // namespace heron::test
