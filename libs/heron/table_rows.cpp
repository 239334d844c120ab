#include "table_rows.h"

#include "byte_order.h"
#include "protocol_rules.h"

namespace heron {

namespace {

// Rows of the "owner module" tables carry the creation time; the "owner PID" ones do not.
template <typename Row>
std::uint64_t CreationTimeOf(const Row& row) {
    if constexpr (requires { row.liCreateTimestamp; }) {
        return static_cast<std::uint64_t>(row.liCreateTimestamp.QuadPart);
    } else {
        return 0;
    }
}

template <typename Row>
Endpoint FromTcp4Row(const Row& row) {
    Endpoint endpoint;
    endpoint.protocol = MakeProtocolCode(false, false);
    endpoint.processId = row.dwOwningPid;
    endpoint.localAddress = IPv4FromTableValue(row.dwLocalAddr);
    endpoint.localPort = HostPortFromTableValue(row.dwLocalPort);
    endpoint.remoteAddress = IPv4FromTableValue(row.dwRemoteAddr);
    endpoint.remotePort = HostPortFromTableValue(row.dwRemotePort);
    endpoint.state = row.dwState;
    endpoint.creationTime = CreationTimeOf(row);
    return endpoint;
}

template <typename Row>
Endpoint FromTcp6Row(const Row& row) {
    Endpoint endpoint;
    endpoint.protocol = MakeProtocolCode(false, true);
    endpoint.processId = row.dwOwningPid;
    endpoint.localAddress = IPv6FromTableBytes(row.ucLocalAddr);
    endpoint.localScopeId = row.dwLocalScopeId;
    endpoint.localPort = HostPortFromTableValue(row.dwLocalPort);
    endpoint.remoteAddress = IPv6FromTableBytes(row.ucRemoteAddr);
    endpoint.remoteScopeId = row.dwRemoteScopeId;
    endpoint.remotePort = HostPortFromTableValue(row.dwRemotePort);
    endpoint.state = row.dwState;
    endpoint.creationTime = CreationTimeOf(row);
    return endpoint;
}

// UDP has no remote side and no state: those stay zero.
template <typename Row>
Endpoint FromUdp4Row(const Row& row) {
    Endpoint endpoint;
    endpoint.protocol = MakeProtocolCode(true, false);
    endpoint.processId = row.dwOwningPid;
    endpoint.localAddress = IPv4FromTableValue(row.dwLocalAddr);
    endpoint.localPort = HostPortFromTableValue(row.dwLocalPort);
    endpoint.creationTime = CreationTimeOf(row);
    return endpoint;
}

template <typename Row>
Endpoint FromUdp6Row(const Row& row) {
    Endpoint endpoint;
    endpoint.protocol = MakeProtocolCode(true, true);
    endpoint.processId = row.dwOwningPid;
    endpoint.localAddress = IPv6FromTableBytes(row.ucLocalAddr);
    endpoint.localScopeId = row.dwLocalScopeId;
    endpoint.localPort = HostPortFromTableValue(row.dwLocalPort);
    endpoint.creationTime = CreationTimeOf(row);
    return endpoint;
}

}  // namespace

Endpoint EndpointFromRow(const MIB_TCPROW_OWNER_MODULE& row) { return FromTcp4Row(row); }
Endpoint EndpointFromRow(const MIB_TCPROW_OWNER_PID& row) { return FromTcp4Row(row); }
Endpoint EndpointFromRow(const MIB_TCP6ROW_OWNER_MODULE& row) { return FromTcp6Row(row); }
Endpoint EndpointFromRow(const MIB_TCP6ROW_OWNER_PID& row) { return FromTcp6Row(row); }
Endpoint EndpointFromRow(const MIB_UDPROW_OWNER_MODULE& row) { return FromUdp4Row(row); }
Endpoint EndpointFromRow(const MIB_UDPROW_OWNER_PID& row) { return FromUdp4Row(row); }
Endpoint EndpointFromRow(const MIB_UDP6ROW_OWNER_MODULE& row) { return FromUdp6Row(row); }
Endpoint EndpointFromRow(const MIB_UDP6ROW_OWNER_PID& row) { return FromUdp6Row(row); }

}  // namespace heron
