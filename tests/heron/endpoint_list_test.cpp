// The endpoint list against sockets of the test process (a TCP listener, a connected pair and a UDP socket on
// 127.0.0.1, and on ::1 where the stack offers IPv6): rows, identities, host names, and the list's own life.
#include <winsock2.h>
#include <ws2tcpip.h>
#include <iphlpapi.h>

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "heron.h"
#include "message_pump.h"

namespace heron::test {
namespace {

constexpr unsigned kLoopback = 0x0100007F;   // 127.0.0.1 as the library packs it: first octet lowest
const bool kWinsock = [] {
    WSADATA data;
    return WSAStartup(MAKEWORD(2, 2), &data) == 0;
}();

// A loopback socket of the test process, closed on scope exit and never inherited by a child process.
class Socket {
public:
    explicit Socket(SOCKET socket = INVALID_SOCKET) : socket_(socket) {}
    Socket(Socket&& other) noexcept : socket_(std::exchange(other.socket_, INVALID_SOCKET)) {}
    Socket& operator=(Socket&& other) noexcept { return std::swap(socket_, other.socket_), *this; }
    ~Socket() { Close(); }
    SOCKET Get() const { return socket_; }
    explicit operator bool() const { return socket_ != INVALID_SOCKET; }
    void Close() { socket_ != INVALID_SOCKET && closesocket(std::exchange(socket_, INVALID_SOCKET)); }

private:
    SOCKET socket_;
};

// A socket of the type on the family's loopback address (127.0.0.1 or ::1): connected to the port when one
// is given, else bound to a port the system picks (and listening, for TCP); empty on failure.
Socket OnLoopback(int family, int type, unsigned connectPort = 0) {
    Socket socket(WSASocketW(family, type, type == SOCK_STREAM ? IPPROTO_TCP : IPPROTO_UDP, nullptr, 0,
                             WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT));
    sockaddr_in6 six{AF_INET6, htons(static_cast<u_short>(connectPort))};
    six.sin6_addr = in6addr_loopback;
    sockaddr_in four{AF_INET, six.sin6_port};
    four.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto* address = family == AF_INET6 ? reinterpret_cast<const sockaddr*>(&six) : reinterpret_cast<const sockaddr*>(&four);
    const int length = family == AF_INET6 ? sizeof six : sizeof four;
    const bool ready = socket && (connectPort ? connect(socket.Get(), address, length) == 0
                                              : bind(socket.Get(), address, length) == 0 &&
                                                    (type != SOCK_STREAM || listen(socket.Get(), 4) == 0));
    return ready ? std::move(socket) : Socket();
}

// The local port of a bound socket in host order.
unsigned LocalPortOf(const Socket& socket) {
    sockaddr_storage address{};
    int length = sizeof address;
    if (getsockname(socket.Get(), reinterpret_cast<sockaddr*>(&address), &length) != 0) return 0;
    return ntohs(address.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6*>(&address)->sin6_port
                                               : reinterpret_cast<const sockaddr_in*>(&address)->sin_port);
}

std::vector<_CONNECTIONOBJECT> ItemsOf(const _CONNECTIONLIST& list) {
    std::vector<_CONNECTIONOBJECT> items;
    for (unsigned i = 0; i < list.GetItemCount(); ++i) items.push_back(list.GetItem(i));
    return items;
}

std::optional<_CONNECTIONOBJECT> FindByPorts(const _CONNECTIONLIST& list, int protocol, unsigned localPort,
                                             unsigned remotePort) {
    for (const _CONNECTIONOBJECT& item : ItemsOf(list))
        if (item.GetProtocol() == protocol && item.GetLocalPort() == localPort && item.GetRemotePort() == remotePort) return item;
    return std::nullopt;
}

// Which list holds an endpoint of the test process: its own, or where the system's tables name no owner (under
// Wine in some sandboxes every row has owner 0) the list of process 0, so the rows can still be checked.
DWORD OwnerOf(int protocol, unsigned localPort) {
    _CONNECTIONLIST list;
    if (list.QueryProcessList(GetCurrentProcessId()) && FindByPorts(list, protocol, localPort, 0)) return GetCurrentProcessId();
    if (list.QueryProcessList(0) && FindByPorts(list, protocol, localPort, 0)) return 0;
    return GetCurrentProcessId();   // not listed at all: the tests using it fail with their own message
}

class OwnEndpoints : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(kWinsock);
        listener_ = OnLoopback(AF_INET, SOCK_STREAM);
        ASSERT_TRUE(listener_) << "listen on 127.0.0.1: " << WSAGetLastError();
        listenerPort_ = LocalPortOf(listener_);
        client_ = OnLoopback(AF_INET, SOCK_STREAM, listenerPort_);
        ASSERT_TRUE(client_) << "connect: " << WSAGetLastError();
        server_ = Socket(accept(listener_.Get(), nullptr, nullptr));   // complete already on loopback
        ASSERT_TRUE(server_) << "accept: " << WSAGetLastError();
        udp_ = OnLoopback(AF_INET, SOCK_DGRAM);
        ASSERT_TRUE(udp_) << "bind UDP: " << WSAGetLastError();
        clientPort_ = LocalPortOf(client_);
        udpPort_ = LocalPortOf(udp_);
        owner_ = OwnerOf(kProtocolTcp, listenerPort_);
        ASSERT_EQ(1, list_.Init());
        ASSERT_EQ(1, list_.QueryProcessList(owner_));
    }

    Socket listener_, client_, server_, udp_;
    unsigned listenerPort_ = 0, clientPort_ = 0, udpPort_ = 0;
    DWORD owner_ = 0;
    _CONNECTIONLIST list_;
};

TEST_F(OwnEndpoints, AreListedWithTheirStatesAddressesAndStableDistinctIds) {
    const auto listener = FindByPorts(list_, kProtocolTcp, listenerPort_, 0);
    ASSERT_TRUE(listener.has_value()) << "no TCP endpoint on port " << listenerPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_LISTEN), listener->GetState());
    EXPECT_EQ(std::wstring(L"LISTEN"), listener->GetStateStr());
    EXPECT_EQ(kLoopback, listener->GetLocalAddress());
    const unsigned char zero[16] = {};   // an IPv4 endpoint has no IPv6 addresses
    EXPECT_EQ(0, std::memcmp(zero, listener->GetLocalIP6Address(), 16));
    EXPECT_EQ(0, std::memcmp(zero, listener->GetRemoteIP6Address(), 16));

    const auto client = FindByPorts(list_, kProtocolTcp, clientPort_, listenerPort_);
    ASSERT_TRUE(client.has_value()) << "no client end " << clientPort_ << " -> " << listenerPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_ESTAB), client->GetState());
    EXPECT_EQ(kLoopback, client->GetRemoteAddress());
    const auto server = FindByPorts(list_, kProtocolTcp, listenerPort_, clientPort_);
    ASSERT_TRUE(server.has_value()) << "no server end " << listenerPort_ << " -> " << clientPort_;
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_ESTAB), server->GetState());
    EXPECT_EQ(client->GetLocalAddress(), server->GetRemoteAddress());

    const auto udp = FindByPorts(list_, kProtocolUdp, udpPort_, 0);
    ASSERT_TRUE(udp.has_value()) << "no UDP endpoint on port " << udpPort_;
    EXPECT_EQ(std::wstring(L"UDP"), udp->GetProtocolStr());
    EXPECT_EQ(0u, udp->GetState());
    EXPECT_EQ(0u, udp->GetRemoteAddress());
    EXPECT_EQ(kLoopback, udp->GetLocalAddress());

    // No creation time from the system shows none; one it gives is a time of the past.
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    SYSTEMTIME today{};
    GetLocalTime(&today);
    const unsigned long long created = listener->GetCreationTimeLi();
    EXPECT_EQ(created == 0, listener->GetCreationTime().wYear == 0) << created;
    EXPECT_LE(listener->GetCreationTime().wYear, today.wYear);
    EXPECT_LE(created, static_cast<unsigned long long>(now.dwHighDateTime) << 32 | now.dwLowDateTime);
    const auto items = ItemsOf(list_);
    ASSERT_GE(items.size(), 4u);
    std::set<unsigned> distinct;
    for (const auto& item : items) distinct.insert(item.GetGenericID());
    EXPECT_EQ(items.size(), distinct.size());
    EXPECT_EQ(0u, distinct.count(0));
    // The ids of this test's own endpoints hold from one query to the next (other programs' sockets, listed
    // where owners are not reported, come and go between the two).
    const auto ownIds = [&] {
        std::vector<unsigned> ids;
        for (const auto& [protocol, local, remote] : {std::tuple{kProtocolTcp, listenerPort_, 0u},
                                                     {kProtocolTcp, clientPort_, listenerPort_},
                                                     {kProtocolTcp, listenerPort_, clientPort_}, {kProtocolUdp, udpPort_, 0u}})
            ids.push_back(FindByPorts(list_, protocol, local, remote).value_or(_CONNECTIONOBJECT()).GetGenericID());
        return ids;
    };
    const auto first = ownIds();
    ASSERT_EQ(1, list_.QueryProcessList(owner_));
    EXPECT_EQ(first, ownIds());

    udp_.Close();
    ASSERT_EQ(1, list_.QueryProcessList(owner_));
    EXPECT_FALSE(FindByPorts(list_, kProtocolUdp, udpPort_, 0).has_value()) << "a closed socket leaves the list";
    EXPECT_TRUE(FindByPorts(list_, kProtocolTcp, listenerPort_, 0).has_value());
}

// Resolving returns after a bounded wait each call; a name the resolver is slow to find shows at a later
// call, and one address has one name wherever it appears, in this list and the next. 0.0.0.0 gets none.
TEST_F(OwnEndpoints, HostNamesAreLookedUpInBoundedTimeAndShared) {
    std::optional<_CONNECTIONOBJECT> listener;
    lmvx_test::PollUntil([&] {
        EXPECT_EQ(1, list_.ResolveAddresses());
        return !(listener = FindByPorts(list_, kProtocolTcp, listenerPort_, 0)) || listener->GetLocalHostname()[0] != L'\0';
    }, 5000);
    ASSERT_TRUE(listener.has_value());
    ASSERT_NE(0u, listener->GetGenericID());
    const std::wstring name = listener->GetLocalHostname();
    const auto client = FindByPorts(list_, kProtocolTcp, clientPort_, listenerPort_);   // 127.0.0.1 at both ends
    ASSERT_TRUE(client.has_value());
    EXPECT_EQ(name, client->GetLocalHostname());
    EXPECT_EQ(name, client->GetRemoteHostname());
    const auto udp = FindByPorts(list_, kProtocolUdp, udpPort_, 0);
    ASSERT_TRUE(udp.has_value());
    EXPECT_EQ(std::wstring(), udp->GetRemoteHostname());
    if (name.empty()) GTEST_SKIP() << "the resolver has no name for 127.0.0.1";
    EXPECT_NE(std::wstring(L"127.0.0.1"), name);

    _CONNECTIONLIST other;   // shows the name found before without resolving
    ASSERT_EQ(1, other.Init());
    ASSERT_EQ(1, other.QueryProcessList(owner_));
    const auto again = FindByPorts(other, kProtocolTcp, listenerPort_, 0);
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(name, again->GetLocalHostname());
}

TEST_F(OwnEndpoints, CopiesOutliveTheListAndDeleteEmptiesItUntilInitStartsOver) {
    // A list is empty before Init, after it and for a process id that names no process (ids are multiples of four).
    // The program zeroes a reused record that holds a list and then calls Init: that must work.
    alignas(_CONNECTIONLIST) unsigned char storage[sizeof(_CONNECTIONLIST)] = {};
    auto* zeroed = reinterpret_cast<_CONNECTIONLIST*>(storage);
    EXPECT_EQ(0u, zeroed->GetItemCount());
    ASSERT_EQ(1, zeroed->Init());
    EXPECT_EQ(0u, zeroed->GetItemCount());
    EXPECT_EQ(1, zeroed->QueryProcessList(GetCurrentProcessId() + 1));
    EXPECT_EQ(0u, zeroed->GetItemCount());
    EXPECT_EQ(1, zeroed->Delete());

    const _CONNECTIONOBJECT past = list_.GetItem(list_.GetItemCount());
    EXPECT_EQ(0u, past.GetGenericID());
    const auto item = FindByPorts(list_, kProtocolUdp, udpPort_, 0);
    ASSERT_TRUE(item.has_value());
    const _CONNECTIONOBJECT copy = *item;

    EXPECT_EQ(1, list_.Delete());
    EXPECT_EQ(item->GetGenericID(), copy.GetGenericID());
    EXPECT_EQ(udpPort_, copy.GetLocalPort());
    EXPECT_EQ(0u, list_.GetItemCount());
    EXPECT_EQ(0, list_.ResolveAddresses());   // nothing to resolve in a deleted list
    ASSERT_EQ(1, list_.Init());
    ASSERT_EQ(1, list_.QueryProcessList(owner_));
    EXPECT_TRUE(FindByPorts(list_, kProtocolUdp, udpPort_, 0).has_value());
}

TEST(IPv6Endpoints, ListsAListenerAndAUdpSocketOnIPv6Loopback) {
    ASSERT_TRUE(kWinsock);
    const Socket listener = OnLoopback(AF_INET6, SOCK_STREAM);
    const Socket udp = OnLoopback(AF_INET6, SOCK_DGRAM);
    if (!listener || !udp) GTEST_SKIP() << "the network stack refuses sockets on ::1 (error " << WSAGetLastError() << ")";
    const unsigned port = LocalPortOf(listener), udpPort = LocalPortOf(udp);
    _CONNECTIONLIST list;
    ASSERT_EQ(1, list.Init());
    ASSERT_EQ(1, list.QueryProcessList(OwnerOf(kProtocolTcp6, port)));
    const auto item = FindByPorts(list, kProtocolTcp6, port, 0);
    ASSERT_TRUE(item.has_value()) << "no TCPv6 endpoint on port " << port;
    EXPECT_EQ(std::wstring(L"TCPv6"), item->GetProtocolStr());
    EXPECT_EQ(static_cast<unsigned>(MIB_TCP_STATE_LISTEN), item->GetState());
    EXPECT_EQ(0, std::memcmp(&in6addr_loopback, item->GetLocalIP6Address(), 16));
    EXPECT_EQ(0u, item->GetLocalAddress());
    const auto udpItem = FindByPorts(list, kProtocolUdp6, udpPort, 0);
    ASSERT_TRUE(udpItem.has_value()) << "no UDPv6 endpoint on port " << udpPort;
}

}  // namespace
}  // namespace heron::test
