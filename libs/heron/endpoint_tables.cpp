#include "endpoint_tables.h"

#include "table_rows.h"

namespace heron {

namespace {

// Calls query(buffer, &size) until the table fits; the table can grow between the size probe and the
// read, so a few rounds are allowed.
template <typename Query>
bool ReadTable(std::vector<unsigned char>& buffer, Query query) {
    constexpr int kAttempts = 8;
    constexpr DWORD kGrowthRoom = 4096;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        DWORD size = static_cast<DWORD>(buffer.size());
        const DWORD result = query(buffer.empty() ? nullptr : buffer.data(), &size);
        if (result == NO_ERROR) return true;
        if (result != ERROR_INSUFFICIENT_BUFFER) return false;
        buffer.resize(size + kGrowthRoom);
    }
    return false;
}

template <typename Table>
void KeepRowsOf(const std::vector<unsigned char>& buffer, std::uint32_t processId,
                std::vector<Endpoint>& endpoints) {
    AppendRowsOwnedBy(*reinterpret_cast<const Table*>(buffer.data()), processId, endpoints);
}

// The "owner module" tables also give the creation time; where the system lacks them, the "owner PID"
// tables still give the owner.
template <typename ModuleTable, typename PidTable, typename Read>
bool CollectFamily(Read read, ULONG moduleClass, ULONG pidClass, std::uint32_t processId,
                   std::vector<Endpoint>& endpoints) {
    std::vector<unsigned char> buffer;
    if (read(buffer, moduleClass)) {
        KeepRowsOf<ModuleTable>(buffer, processId, endpoints);
        return true;
    }
    buffer.clear();
    if (read(buffer, pidClass)) {
        KeepRowsOf<PidTable>(buffer, processId, endpoints);
        return true;
    }
    return false;
}

auto TcpReader(ULONG family) {
    return [family](std::vector<unsigned char>& buffer, ULONG tableClass) {
        return ReadTable(buffer, [&](void* data, DWORD* size) {
            return GetExtendedTcpTable(data, size, FALSE, family, static_cast<TCP_TABLE_CLASS>(tableClass), 0);
        });
    };
}

auto UdpReader(ULONG family) {
    return [family](std::vector<unsigned char>& buffer, ULONG tableClass) {
        return ReadTable(buffer, [&](void* data, DWORD* size) {
            return GetExtendedUdpTable(data, size, FALSE, family, static_cast<UDP_TABLE_CLASS>(tableClass), 0);
        });
    };
}

}  // namespace

bool CollectProcessEndpoints(std::uint32_t processId, std::vector<Endpoint>& endpoints) {
    bool anyRead = false;
    anyRead |= CollectFamily<MIB_TCPTABLE_OWNER_MODULE, MIB_TCPTABLE_OWNER_PID>(
        TcpReader(AF_INET), TCP_TABLE_OWNER_MODULE_ALL, TCP_TABLE_OWNER_PID_ALL, processId, endpoints);
    anyRead |= CollectFamily<MIB_TCP6TABLE_OWNER_MODULE, MIB_TCP6TABLE_OWNER_PID>(
        TcpReader(AF_INET6), TCP_TABLE_OWNER_MODULE_ALL, TCP_TABLE_OWNER_PID_ALL, processId, endpoints);
    anyRead |= CollectFamily<MIB_UDPTABLE_OWNER_MODULE, MIB_UDPTABLE_OWNER_PID>(
        UdpReader(AF_INET), UDP_TABLE_OWNER_MODULE, UDP_TABLE_OWNER_PID, processId, endpoints);
    anyRead |= CollectFamily<MIB_UDP6TABLE_OWNER_MODULE, MIB_UDP6TABLE_OWNER_PID>(
        UdpReader(AF_INET6), UDP_TABLE_OWNER_MODULE, UDP_TABLE_OWNER_PID, processId, endpoints);
    return anyRead;
}

}  // namespace heron
