// Conversion of one row of the system's TCP and UDP tables (with owning process, with or without the
// creation time) into an Endpoint: ports to host order, addresses as 16 bytes.
#pragma once
#include <winsock2.h>
#include <ws2tcpip.h>
#include <iphlpapi.h>

#include <cstdint>
#include <vector>

#include "endpoint.h"

namespace heron {

Endpoint EndpointFromRow(const MIB_TCPROW_OWNER_MODULE& row);
Endpoint EndpointFromRow(const MIB_TCPROW_OWNER_PID& row);
Endpoint EndpointFromRow(const MIB_TCP6ROW_OWNER_MODULE& row);
Endpoint EndpointFromRow(const MIB_TCP6ROW_OWNER_PID& row);
Endpoint EndpointFromRow(const MIB_UDPROW_OWNER_MODULE& row);
Endpoint EndpointFromRow(const MIB_UDPROW_OWNER_PID& row);
Endpoint EndpointFromRow(const MIB_UDP6ROW_OWNER_MODULE& row);
Endpoint EndpointFromRow(const MIB_UDP6ROW_OWNER_PID& row);

// Appends the rows of a table (any of the eight kinds above) that the process owns.
template <typename Table>
void AppendRowsOwnedBy(const Table& table, std::uint32_t processId, std::vector<Endpoint>& endpoints) {
    for (DWORD i = 0; i < table.dwNumEntries; ++i) {
        if (table.table[i].dwOwningPid == processId) endpoints.push_back(EndpointFromRow(table.table[i]));
    }
}

}  // namespace heron
