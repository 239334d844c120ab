#include "handle_table.h"

#include <algorithm>
#include <atomic>
#include <cstddef>

#include "handle_nt_api.h"

namespace kestrel::detail {

namespace {

constexpr size_t kInitialBufferBytes = 256 * 1024;
constexpr size_t kMaximumBufferBytes = 256 * 1024 * 1024;

// Calls query(buffer, size, &needed) and grows the buffer while the system says it is too small.
template <typename Query>
NTSTATUS QueryGrowing(QueryBuffer& buffer, Query query) {
    if (buffer.size() < kInitialBufferBytes) buffer.resize(kInitialBufferBytes);
    for (;;) {
        ULONG needed = 0;
        const NTSTATUS status = query(buffer.data(), static_cast<ULONG>(buffer.size()), &needed);
        if (status != nt::StatusInfoLengthMismatch && status != nt::StatusBufferTooSmall &&
            status != nt::StatusBufferOverflow)
            return status;
        // The table may grow between two calls: ask for some room beyond what was needed.
        size_t next = std::max<size_t>(buffer.size() * 2, static_cast<size_t>(needed) + needed / 4);
        if (next > kMaximumBufferBytes) return status;
        buffer.resize(next);
    }
}

// Cleared once the system answers that it does not know the process's own query (older Windows, Wine).
std::atomic<bool> g_processQueryAvailable{true};

bool ReadFromProcessQuery(HANDLE process, QueryBuffer& buffer, std::vector<RawHandle>& handles) {
    const auto query = nt::QueryInformationProcess();
    if (!process || !query || !g_processQueryAvailable.load()) return false;
    const NTSTATUS status = QueryGrowing(buffer, [&](void* data, ULONG size, ULONG* needed) {
        return query(process, nt::ProcessHandleInformationClass, data, size, needed);
    });
    if (status < 0) {
        constexpr NTSTATUS kInvalidInfoClass = static_cast<NTSTATUS>(0xC0000003L);
        constexpr NTSTATUS kNotImplemented = static_cast<NTSTATUS>(0xC0000002L);
        if (status == kInvalidInfoClass || status == kNotImplemented) g_processQueryAvailable = false;
        return false;
    }
    const auto* snapshot = reinterpret_cast<const nt::ProcessHandleSnapshot*>(buffer.data());
    const size_t capacity = (buffer.size() - offsetof(nt::ProcessHandleSnapshot, Handles)) / sizeof(nt::ProcessHandleEntry);
    const size_t count = std::min<size_t>(snapshot->NumberOfHandles, capacity);
    handles.clear();
    handles.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        const nt::ProcessHandleEntry& entry = snapshot->Handles[i];
        handles.push_back({reinterpret_cast<ULONG_PTR>(entry.HandleValue), entry.GrantedAccess, entry.ObjectTypeIndex});
    }
    return true;
}

NTSTATUS QuerySystemTable(QueryBuffer& buffer) {
    const auto query = nt::QuerySystemInformation();
    if (!query) return static_cast<NTSTATUS>(0xC0000002L);
    return QueryGrowing(buffer, [&](void* data, ULONG size, ULONG* needed) {
        return query(nt::SystemExtendedHandleInformationClass, data, size, needed);
    });
}

size_t SystemTableCount(const QueryBuffer& buffer) {
    const auto* table = reinterpret_cast<const nt::SystemHandleInformationEx*>(buffer.data());
    const size_t capacity = (buffer.size() - offsetof(nt::SystemHandleInformationEx, Handles)) / sizeof(nt::SystemHandleEntryEx);
    return std::min<size_t>(table->NumberOfHandles, capacity);
}

bool ReadFromSystemTable(unsigned pid, QueryBuffer& buffer, std::vector<RawHandle>& handles) {
    if (QuerySystemTable(buffer) < 0) return false;
    const auto* table = reinterpret_cast<const nt::SystemHandleInformationEx*>(buffer.data());
    const size_t count = SystemTableCount(buffer);
    handles.clear();
    for (size_t i = 0; i < count; ++i) {
        const nt::SystemHandleEntryEx& entry = table->Handles[i];
        if (entry.UniqueProcessId != pid) continue;
        handles.push_back({entry.HandleValue, entry.GrantedAccess, entry.ObjectTypeIndex});
    }
    return true;
}

}  // namespace

bool ReadHandleTable(HANDLE process, unsigned pid, QueryBuffer& buffer, std::vector<RawHandle>& handles) {
    return ReadFromProcessQuery(process, buffer, handles) || ReadFromSystemTable(pid, buffer, handles);
}

}  // namespace kestrel::detail
