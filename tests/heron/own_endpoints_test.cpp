// The endpoints of the test process itself: a TCP listener, a connected pair and a UDP socket on 127.0.0.1.
#include "test_sockets.h"
#include <iphlpapi.h>

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "heron.h"
#include "list_helpers.h"

namespace heron::test {
namespace {

// The four octets packed the way the library reports IPv4 addresses: first octet in the lowest byte.
unsigned PackedIPv4(const std::array<std::uint8_t, 16>& bytes) {
    return bytes[0] | (bytes[1] << 8) | (bytes[2] << 16) | (static_cast<unsigned>(bytes[3]) << 24);
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

TEST_F(OwnEndpoints, AreListedUnderThisProcess) {
    if (!owner_.ownersReported) GTEST_SKIP() << kNoOwnersReason;
    EXPECT_EQ(GetCurrentProcessId(), owner_.processId);
    EXPECT_TRUE(FindByPorts(list_, kProtocolUdp, udpPort_, 0).has_value());
    EXPECT_TRUE(FindByPorts(list_, kProtocolTcp, clientPort_, listenerPort_).has_value());
}

TEST_F(OwnEndpoints, ListsTheListenerInListenState) {
    const auto listener = FindByPorts(list_, kProtocolTcp, listenerPort_, 0);
    ASSERT_TRUE(listener.has_value()) << "no TCP endpoint on port " << listenerPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_LISTEN), listener->GetState());
    EXPECT_EQ(std::wstring(L"LISTEN"), listener->GetStateStr());
    EXPECT_EQ(std::wstring(L"TCP"), listener->GetProtocolStr());
    EXPECT_EQ(PackedIPv4(LocalAddressOf(listener_)), listener->GetLocalAddress());
    EXPECT_NE(0u, listener->GetGenericID());
    const std::array<std::uint8_t, 16> zero{};   // an IPv4 endpoint has no IPv6 addresses
    EXPECT_EQ(0, std::memcmp(zero.data(), listener->GetLocalIP6Address(), zero.size()));
    EXPECT_EQ(0, std::memcmp(zero.data(), listener->GetRemoteIP6Address(), zero.size()));
}

TEST_F(OwnEndpoints, ListsBothEndsOfTheConnection) {
    const auto client = FindByPorts(list_, kProtocolTcp, clientPort_, listenerPort_);
    ASSERT_TRUE(client.has_value()) << "no client end " << clientPort_ << " -> " << listenerPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_ESTAB), client->GetState());
    EXPECT_EQ(std::wstring(L"ESTABLISHED"), client->GetStateStr());
    EXPECT_EQ(PackedIPv4(LocalAddressOf(listener_)), client->GetRemoteAddress());

    const auto server = FindByPorts(list_, kProtocolTcp, listenerPort_, clientPort_);
    ASSERT_TRUE(server.has_value()) << "no server end " << listenerPort_ << " -> " << clientPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_ESTAB), server->GetState());
    EXPECT_EQ(client->GetLocalAddress(), server->GetRemoteAddress());
}

TEST_F(OwnEndpoints, ListsTheUdpSocketWithoutRemoteSideOrState) {
    const auto udp = FindByPorts(list_, kProtocolUdp, udpPort_, 0);
    ASSERT_TRUE(udp.has_value()) << "no UDP endpoint on port " << udpPort_;
    EXPECT_EQ(std::wstring(L"UDP"), udp->GetProtocolStr());
    EXPECT_EQ(0u, udp->GetState());
    EXPECT_EQ(std::wstring(), udp->GetStateStr());
    EXPECT_EQ(0u, udp->GetRemoteAddress());
    EXPECT_EQ(PackedIPv4(LocalAddressOf(udp_)), udp->GetLocalAddress());
}

using Identity = std::tuple<int, unsigned, unsigned, unsigned, unsigned>;

std::map<Identity, unsigned> IdsByIdentity(const _CONNECTIONLIST& list) {
    std::map<Identity, unsigned> ids;
    for (const _CONNECTIONOBJECT& item : ItemsOf(list)) {
        ids[{item.GetProtocol(), item.GetLocalAddress(), item.GetLocalPort(), item.GetRemoteAddress(),
             item.GetRemotePort()}] = item.GetGenericID();
    }
    return ids;
}

TEST_F(OwnEndpoints, GenericIdsAreDistinctNonZeroAndStayTheSameAcrossQueries) {
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
        const auto again = second.find(identity);
        ASSERT_NE(second.end(), again) << "endpoint vanished between two queries";
        EXPECT_EQ(id, again->second);
    }
}

TEST_F(OwnEndpoints, AClosedSocketLeavesTheList) {
    const unsigned port = udpPort_;
    udp_.Close();
    ASSERT_EQ(1, list_.QueryProcessList(owner_.processId));
    EXPECT_FALSE(FindByPorts(list_, kProtocolUdp, port, 0).has_value());
    EXPECT_TRUE(FindByPorts(list_, kProtocolTcp, listenerPort_, 0).has_value());
}

TEST_F(OwnEndpoints, CreationTimeIsInThePastWhenTheSystemGivesOne) {
    const auto listener = FindByPorts(list_, kProtocolTcp, listenerPort_, 0);
    ASSERT_TRUE(listener.has_value());
    if (listener->GetCreationTimeLi() == 0) {
        const SYSTEMTIME unknown = listener->GetCreationTime();
        EXPECT_EQ(0, unknown.wYear);
        GTEST_SKIP() << "the system's endpoint tables give no creation time";
    }
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    const unsigned long long nowValue = (static_cast<unsigned long long>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
    EXPECT_LE(listener->GetCreationTimeLi(), nowValue);
    SYSTEMTIME today{};
    GetLocalTime(&today);
    EXPECT_LE(listener->GetCreationTime().wYear, today.wYear);
    EXPECT_NE(0, listener->GetCreationTime().wYear);
}

}  // namespace
}  // namespace heron::test
