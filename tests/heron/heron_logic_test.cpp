// The network library's pure logic: table rows to endpoints (byte orders, addresses, ports), endpoint ids,
// protocol codes and state texts, host name fields.
#include <winsock2.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "byte_order.h"
#include "endpoint_id.h"
#include "hostname_text.h"
#include "protocol_rules.h"
#include "table_rows.h"

namespace heron {
namespace {

// A table's IPv4 value from its bytes in memory order.
DWORD IPv4TableValue(const std::array<std::uint8_t, 4>& bytes) {
    DWORD value = 0;
    return std::memcpy(&value, bytes.data(), sizeof value), value;
}

auto Fields(const Endpoint& e) {
    return std::tie(e.protocol, e.processId, e.localAddress, e.remoteAddress, e.localScopeId, e.remoteScopeId,
                    e.localPort, e.remotePort, e.state, e.creationTime);
}

// Every field of the endpoint, each row kind with fields that tell the members apart.
TEST(EndpointFromRow, EachTableKindGivesItsProtocolHostOrderPortsAddressesAndWhatItHas) {
    // Whatever the system leaves in the upper two bytes of a port is not part of it.
    MIB_TCPROW_OWNER_MODULE tcp{MIB_TCP_STATE_ESTAB, IPv4TableValue({127, 0, 0, 1}), htons(50000) | 0xABCD0000u,
                                IPv4TableValue({93, 184, 216, 34}), htons(443) | 0x12340000u, 1234, {}, {}};
    tcp.liCreateTimestamp.QuadPart = 132000000000000000ll;
    EXPECT_EQ(Fields(EndpointFromRow(tcp)),
              Fields(Endpoint{.protocol = MakeProtocolCode(false, false), .processId = 1234, .localAddress = {127, 0, 0, 1},
                              .remoteAddress = {93, 184, 216, 34}, .localPort = 50000, .remotePort = 443,
                              .state = MIB_TCP_STATE_ESTAB, .creationTime = 132000000000000000ull}));
    const MIB_TCPROW_OWNER_PID noTime{MIB_TCP_STATE_LISTEN, 0, htons(8080), 0, 0, 77};
    EXPECT_EQ(Fields(EndpointFromRow(noTime)),
              Fields(Endpoint{.processId = 77, .localPort = 8080, .state = MIB_TCP_STATE_LISTEN}));

    MIB_TCP6ROW_OWNER_PID tcp6{{}, 4, htons(6000), {0xFE, 0x80}, 3, htons(6001), MIB_TCP_STATE_SYN_SENT, 5};
    tcp6.ucLocalAddr[15] = 1;   // ::1
    const std::array<std::uint8_t, 16> ipv6Loopback{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_EQ(Fields(EndpointFromRow(tcp6)),
              Fields(Endpoint{.protocol = MakeProtocolCode(false, true), .processId = 5, .localAddress = ipv6Loopback,
                              .remoteAddress = {0xFE, 0x80}, .localScopeId = 4, .remoteScopeId = 3, .localPort = 6000,
                              .remotePort = 6001, .state = MIB_TCP_STATE_SYN_SENT}));
    const MIB_UDPROW_OWNER_PID udp{IPv4TableValue({10, 0, 0, 9}), htons(53), 9};
    EXPECT_EQ(Fields(EndpointFromRow(udp)), Fields(Endpoint{.protocol = MakeProtocolCode(true, false), .processId = 9,
                                                            .localAddress = {10, 0, 0, 9}, .localPort = 53}));
    MIB_UDP6ROW_OWNER_MODULE udp6{{}, 2, htons(5353), 0, {}, {}, {}};
    udp6.ucLocalAddr[15] = 1;
    udp6.liCreateTimestamp.QuadPart = 5;
    EXPECT_EQ(Fields(EndpointFromRow(udp6)), Fields(Endpoint{.protocol = MakeProtocolCode(true, true), .localAddress = ipv6Loopback,
                                                             .localScopeId = 2, .localPort = 5353, .creationTime = 5}));
}

TEST(AppendRowsOwnedBy, AppendsOnlyTheRowsOfTheProcessInTableOrderKeepingWhatIsThere) {
    struct {
        DWORD dwNumEntries = 3;
        MIB_TCPROW_OWNER_PID table[3] = {};
    } rows;
    const DWORD owners[] = {100, 200, 100};
    for (DWORD i = 0; i < 3; ++i) rows.table[i] = {.dwLocalPort = htons(static_cast<u_short>(1000 + i)), .dwOwningPid = owners[i]};
    std::vector<Endpoint> endpoints;
    for (DWORD owner : {100, 200, 300}) AppendRowsOwnedBy(rows, owner, endpoints);
    std::vector<std::uint32_t> ports;
    for (const Endpoint& endpoint : endpoints) ports.push_back(endpoint.localPort);
    EXPECT_EQ(ports, (std::vector<std::uint32_t>{1000, 1002, 1001}));
}

// Packed IPv4 values are the system's in_addr; an address is unspecified only when every byte is zero.
TEST(ByteOrder, PackedIPv4IsTheSystemsInAddrAndUnspecifiedMeansAllZero) {
    in_addr system{};
    system.S_un.S_un_b = {10, 20, 30, 40};
    const auto address = IPv4FromTableValue(system.S_un.S_addr);
    EXPECT_EQ((std::array<std::uint8_t, 16>{10, 20, 30, 40}), address);
    EXPECT_EQ(system.S_un.S_addr, PackIPv4(address));
    const std::array<std::uint8_t, 16> zero{};
    EXPECT_TRUE(IsUnspecifiedAddress(zero));
    for (std::size_t i = 0; i < zero.size(); ++i) {
        auto changed = zero;
        changed[i] = 1;
        EXPECT_FALSE(IsUnspecifiedAddress(changed)) << "byte " << i;
    }
}

// Bit zero is IPv6, bit four UDP; each protocol and each state of the system's tables has its text, nothing else.
TEST(ProtocolAndStateTexts, ProtocolBitsAndTextsAndTheStatesOfTheSystemTablesOnly) {
    const struct {
        bool udp, ipv6;
        int code;
        const wchar_t* text;
    } cases[] = {{false, false, 0, L"TCP"}, {false, true, 1, L"TCPv6"}, {true, false, 16, L"UDP"}, {true, true, 17, L"UDPv6"}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.code, MakeProtocolCode(c.udp, c.ipv6));
        EXPECT_EQ(c.ipv6, IsIPv6Protocol(c.code)) << c.code;
        EXPECT_EQ(c.udp, IsUdpProtocol(c.code)) << c.code;
        EXPECT_EQ(std::wstring(c.text), ProtocolText(c.code));
    }
    EXPECT_EQ(std::wstring(), ProtocolText(2));
    EXPECT_EQ(std::wstring(), ProtocolText(-1));
    const std::pair<unsigned, const wchar_t*> states[] = {
        {0, L""}, {1, L"CLOSED"}, {5, L"ESTABLISHED"}, {12, L"DELETE-TCB"}, {13, L""}, {0xFFFFFFFF, L""}};
    for (const auto& [state, text] : states) EXPECT_EQ(std::wstring(text), TcpStateText(state)) << state;
}

TEST(CopyHostname, CopiesWhatFitsTerminatedAndClearsForAnEmptyName) {
    wchar_t field[6];
    std::fill(std::begin(field), std::end(field), L'#');
    for (const auto& [name, copied] : {std::pair{L"host", L"host"}, {L"abcdefghij", L"abcde"}, {L"", L""}}) {
        CopyHostname(field, std::size(field), name);
        EXPECT_EQ(std::wstring(copied), field);
    }
}

Endpoint SampleEndpoint() {
    return {.protocol = 0, .processId = 4321, .localAddress = {127, 0, 0, 1}, .remoteAddress = {10, 1, 2, 3},
            .localPort = 50123, .remotePort = 443, .state = 5};
}

// The same endpoint has the same non-zero id; every identifying field changes it, state and creation time do not.
TEST(ComputeGenericID, EveryIdentifyingFieldAndNothingElseChangesTheId) {
    const std::uint32_t original = ComputeGenericID(SampleEndpoint());
    EXPECT_NE(0u, original);
    const std::pair<const char*, std::function<void(Endpoint&)>> changes[] = {
        {"protocol", [](Endpoint& e) { e.protocol = 16; }},
        {"process", [](Endpoint& e) { e.processId += 4; }},
        {"local address", [](Endpoint& e) { e.localAddress[3] = 2; }},
        {"local address, IPv6 part", [](Endpoint& e) { e.localAddress[15] = 1; }},
        {"local port", [](Endpoint& e) { e.localPort += 1; }},
        {"remote address", [](Endpoint& e) { e.remoteAddress[0] = 11; }},
        {"remote port", [](Endpoint& e) { e.remotePort += 1; }},
        {"local and remote swapped", [](Endpoint& e) {
             std::swap(e.localAddress, e.remoteAddress);
             std::swap(e.localPort, e.remotePort);
         }},
    };
    for (const auto& [what, change] : changes) {
        Endpoint endpoint = SampleEndpoint();
        change(endpoint);
        EXPECT_NE(original, ComputeGenericID(endpoint)) << what;
    }
    Endpoint endpoint = SampleEndpoint();
    endpoint.state = 8;
    endpoint.creationTime = 133000000000000000ull;
    EXPECT_EQ(original, ComputeGenericID(endpoint));
}

// Two different endpoints whose hashes collide, found by a deterministic search over owners and ports (a 32-bit
// hash has colliding pairs among a few hundred thousand inputs); two empty endpoints when there is none.
std::pair<Endpoint, Endpoint> FindCollision() {
    const auto candidate = [](std::uint32_t index) {
        Endpoint endpoint = SampleEndpoint();
        endpoint.processId = index * 2654435761u;   // a different owner for every index
        endpoint.localPort = index & 0xFFFF;
        endpoint.remotePort = index >> 16;
        return endpoint;
    };
    std::unordered_map<std::uint32_t, std::uint32_t> seen;   // hash, candidate index
    for (std::uint32_t index = 0; index < 2000000; ++index) {
        const auto [earlier, added] = seen.emplace(ComputeGenericID(candidate(index)), index);
        if (!added) return {candidate(earlier->second), candidate(index)};
    }
    return {};
}

// Distinct endpoints keep their hashes; duplicates and collisions get distinct ids, the same whatever the order.
TEST(AssignGenericIDs, DistinctEndpointsKeepTheirHashesAndDuplicatesAndCollisionsAreSettledWhateverTheOrder) {
    std::vector<Endpoint> endpoints(10, SampleEndpoint());
    for (std::uint32_t i = 0; i < endpoints.size(); ++i) endpoints[i].localPort = 1000 + i;
    const auto ids = AssignGenericIDs(endpoints);
    ASSERT_EQ(endpoints.size(), ids.size());
    for (std::size_t i = 0; i < endpoints.size(); ++i) EXPECT_EQ(ComputeGenericID(endpoints[i]), ids[i]);

    // Duplicate rows get distinct non-zero ids; the first keeps the plain hash, so an endpoint's id does not
    // move when a duplicate appears.
    const auto duplicates = AssignGenericIDs(std::vector<Endpoint>(3, SampleEndpoint()));
    const std::set<std::uint32_t> distinct(duplicates.begin(), duplicates.end());
    EXPECT_EQ(3u, distinct.size());
    EXPECT_EQ(ComputeGenericID(SampleEndpoint()), duplicates[0]);

    const auto [first, second] = FindCollision();
    ASSERT_NE(first.processId, second.processId) << "no colliding pair in the search range";
    ASSERT_EQ(ComputeGenericID(first), ComputeGenericID(second));

    const auto forward = AssignGenericIDs({first, second});
    const auto backward = AssignGenericIDs({second, first});
    EXPECT_NE(forward[0], forward[1]);
    EXPECT_EQ(forward[0], backward[1]);
    EXPECT_EQ(forward[1], backward[0]);
    // One of the two keeps the hash; the other gets the next value.
    const std::set<std::uint32_t> settled(forward.begin(), forward.end());
    EXPECT_EQ(1u, settled.count(ComputeGenericID(first)));
    EXPECT_EQ(1u, settled.count(ComputeGenericID(first) + 1 == 0 ? 1 : ComputeGenericID(first) + 1));
}

}  // namespace
}  // namespace heron
