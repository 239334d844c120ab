#include "table_rows.h"

#include <gtest/gtest.h>

#include <cstring>

#include "protocol_rules.h"

namespace heron {
namespace {

DWORD IPv4TableValue(std::uint8_t b0, std::uint8_t b1, std::uint8_t b2, std::uint8_t b3) {
    const std::uint8_t bytes[4] = {b0, b1, b2, b3};
    DWORD value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

TEST(EndpointFromRow, TcpOverIPv4WithCreationTime) {
    MIB_TCPROW_OWNER_MODULE row{};
    row.dwState = MIB_TCP_STATE_ESTAB;
    row.dwLocalAddr = IPv4TableValue(127, 0, 0, 1);
    row.dwLocalPort = htons(50000);
    row.dwRemoteAddr = IPv4TableValue(93, 184, 216, 34);
    row.dwRemotePort = htons(443);
    row.dwOwningPid = 1234;
    row.liCreateTimestamp.QuadPart = 132000000000000000ll;

    const Endpoint endpoint = EndpointFromRow(row);
    EXPECT_EQ(MakeProtocolCode(false, false), endpoint.protocol);
    EXPECT_EQ(row.dwOwningPid, endpoint.processId);
    EXPECT_EQ(127, endpoint.localAddress[0]);
    EXPECT_EQ(1, endpoint.localAddress[3]);
    EXPECT_EQ(93, endpoint.remoteAddress[0]);
    EXPECT_EQ(34, endpoint.remoteAddress[3]);
    EXPECT_EQ(50000u, endpoint.localPort);
    EXPECT_EQ(443u, endpoint.remotePort);
    EXPECT_EQ(static_cast<std::uint32_t>(MIB_TCP_STATE_ESTAB), endpoint.state);
    EXPECT_EQ(static_cast<std::uint64_t>(row.liCreateTimestamp.QuadPart), endpoint.creationTime);
}

TEST(EndpointFromRow, TablesWithoutCreationTimeGiveZero) {
    MIB_TCPROW_OWNER_PID row{};
    row.dwState = MIB_TCP_STATE_LISTEN;
    row.dwLocalPort = htons(8080);
    row.dwOwningPid = 77;
    const Endpoint endpoint = EndpointFromRow(row);
    EXPECT_EQ(0u, endpoint.creationTime);
    EXPECT_EQ(8080u, endpoint.localPort);
    EXPECT_EQ(static_cast<std::uint32_t>(MIB_TCP_STATE_LISTEN), endpoint.state);
}

TEST(EndpointFromRow, TcpOverIPv6KeepsAddressesAndScopes) {
    MIB_TCP6ROW_OWNER_PID row{};
    row.ucLocalAddr[15] = 1;                 // ::1
    row.ucRemoteAddr[0] = 0xFE;
    row.ucRemoteAddr[1] = 0x80;
    row.dwRemoteScopeId = 3;
    row.dwLocalPort = htons(6000);
    row.dwRemotePort = htons(6001);
    row.dwState = MIB_TCP_STATE_SYN_SENT;
    const Endpoint endpoint = EndpointFromRow(row);
    EXPECT_EQ(MakeProtocolCode(false, true), endpoint.protocol);
    EXPECT_EQ(0, std::memcmp(row.ucLocalAddr, endpoint.localAddress.data(), 16));
    EXPECT_EQ(0, std::memcmp(row.ucRemoteAddr, endpoint.remoteAddress.data(), 16));
    EXPECT_EQ(row.dwRemoteScopeId, endpoint.remoteScopeId);
    EXPECT_EQ(6000u, endpoint.localPort);
    EXPECT_EQ(6001u, endpoint.remotePort);
}

TEST(EndpointFromRow, UdpHasNoRemoteSideAndNoState) {
    MIB_UDPROW_OWNER_PID row{};
    row.dwLocalAddr = IPv4TableValue(0, 0, 0, 0);
    row.dwLocalPort = htons(53);
    row.dwOwningPid = 9;
    const Endpoint endpoint = EndpointFromRow(row);
    EXPECT_EQ(MakeProtocolCode(true, false), endpoint.protocol);
    EXPECT_EQ(53u, endpoint.localPort);
    EXPECT_EQ(0u, endpoint.remotePort);
    EXPECT_EQ(0u, endpoint.state);
}

TEST(EndpointFromRow, UdpOverIPv6WithCreationTime) {
    MIB_UDP6ROW_OWNER_MODULE row{};
    row.ucLocalAddr[15] = 1;
    row.dwLocalScopeId = 2;
    row.dwLocalPort = htons(5353);
    row.liCreateTimestamp.QuadPart = 5;
    const Endpoint endpoint = EndpointFromRow(row);
    EXPECT_EQ(MakeProtocolCode(true, true), endpoint.protocol);
    EXPECT_EQ(1, endpoint.localAddress[15]);
    EXPECT_EQ(2u, endpoint.localScopeId);
    EXPECT_EQ(5353u, endpoint.localPort);
    EXPECT_EQ(5u, endpoint.creationTime);
}

}  // namespace
}  // namespace heron

namespace heron {
namespace {

// A table of three rows with the members the system's tables have: the count, then the rows.
struct ThreeRowTcpTable {
    DWORD dwNumEntries = 3;
    MIB_TCPROW_OWNER_PID table[3] = {};
};

TEST(AppendRowsOwnedBy, KeepsOnlyTheRowsOfTheProcess) {
    ThreeRowTcpTable rows;
    rows.table[0].dwOwningPid = 100;
    rows.table[0].dwLocalPort = htons(1001);
    rows.table[1].dwOwningPid = 200;
    rows.table[1].dwLocalPort = htons(2001);
    rows.table[2].dwOwningPid = 100;
    rows.table[2].dwLocalPort = htons(1002);
    const ThreeRowTcpTable& table = rows;

    std::vector<Endpoint> endpoints;
    AppendRowsOwnedBy(table, 100, endpoints);
    ASSERT_EQ(2u, endpoints.size());
    EXPECT_EQ(1001u, endpoints[0].localPort);
    EXPECT_EQ(1002u, endpoints[1].localPort);

    AppendRowsOwnedBy(table, 200, endpoints);   // appends, keeps what is there
    ASSERT_EQ(3u, endpoints.size());
    EXPECT_EQ(2001u, endpoints[2].localPort);

    std::vector<Endpoint> none;
    AppendRowsOwnedBy(table, 300, none);
    EXPECT_TRUE(none.empty());
}

}  // namespace
}  // namespace heron
