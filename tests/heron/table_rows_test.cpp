#include "table_rows.h"

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

#include "protocol_rules.h"

namespace heron {
namespace {

DWORD IPv4TableValue(std::uint8_t b0, std::uint8_t b1, std::uint8_t b2, std::uint8_t b3) {
    const std::uint8_t bytes[4] = {b0, b1, b2, b3};
    DWORD value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

auto Fields(const Endpoint& e) {
    return std::tie(e.protocol, e.processId, e.localAddress, e.remoteAddress, e.localScopeId, e.remoteScopeId,
                    e.localPort, e.remotePort, e.state, e.creationTime);
}

// Every field of the endpoint, each row kind with fields that tell the members apart.
TEST(EndpointFromRow, EachTableKindGivesItsProtocolHostOrderPortsAddressesAndWhatItHas) {
    MIB_TCPROW_OWNER_MODULE tcp{MIB_TCP_STATE_ESTAB, IPv4TableValue(127, 0, 0, 1), htons(50000),
                                IPv4TableValue(93, 184, 216, 34), htons(443), 1234, {}, {}};
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
    Endpoint expected{.protocol = MakeProtocolCode(false, true), .processId = 5, .remoteAddress = {0xFE, 0x80},
                      .localScopeId = 4, .remoteScopeId = 3, .localPort = 6000, .remotePort = 6001,
                      .state = MIB_TCP_STATE_SYN_SENT};
    expected.localAddress[15] = 1;
    EXPECT_EQ(Fields(EndpointFromRow(tcp6)), Fields(expected));

    const MIB_UDPROW_OWNER_PID udp{IPv4TableValue(10, 0, 0, 9), htons(53), 9};
    EXPECT_EQ(Fields(EndpointFromRow(udp)), Fields(Endpoint{.protocol = MakeProtocolCode(true, false), .processId = 9,
                                                            .localAddress = {10, 0, 0, 9}, .localPort = 53}));
    MIB_UDP6ROW_OWNER_MODULE udp6{{}, 2, htons(5353), 0, {}, {}, {}};
    udp6.ucLocalAddr[15] = 1;
    udp6.liCreateTimestamp.QuadPart = 5;
    expected = Endpoint{.protocol = MakeProtocolCode(true, true), .localScopeId = 2, .localPort = 5353, .creationTime = 5};
    expected.localAddress[15] = 1;
    EXPECT_EQ(Fields(EndpointFromRow(udp6)), Fields(expected));
}

TEST(AppendRowsOwnedBy, AppendsOnlyTheRowsOfTheProcessInTableOrder) {
    struct {
        DWORD dwNumEntries = 3;
        MIB_TCPROW_OWNER_PID table[3] = {};
    } rows;
    const DWORD owners[] = {100, 200, 100}, ports[] = {1001, 2001, 1002};
    for (int i = 0; i < 3; ++i) {
        rows.table[i].dwOwningPid = owners[i];
        rows.table[i].dwLocalPort = htons(static_cast<u_short>(ports[i]));
    }
    const auto portsOf = [](const std::vector<Endpoint>& endpoints) {
        std::vector<std::uint32_t> seen;
        for (const Endpoint& endpoint : endpoints) seen.push_back(endpoint.localPort);
        return seen;
    };
    std::vector<Endpoint> endpoints;
    AppendRowsOwnedBy(rows, 100, endpoints);
    EXPECT_EQ(portsOf(endpoints), (std::vector<std::uint32_t>{1001, 1002}));
    AppendRowsOwnedBy(rows, 200, endpoints);   // appends, keeps what is there
    EXPECT_EQ(portsOf(endpoints), (std::vector<std::uint32_t>{1001, 1002, 2001}));
    AppendRowsOwnedBy(rows, 300, endpoints);
    EXPECT_EQ(endpoints.size(), 3u);
}

}  // namespace
}  // namespace heron
