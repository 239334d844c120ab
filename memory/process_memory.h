// Opening a process for memory inspection, the region walk the address lists and the search share,
// and the address lists of the memory viewer and the Virtual Memory page.
#pragma once
#include <windows.h>

#include <cstdint>

#include "common/unique_resource.h"

namespace lmvx {

// PROCESS_QUERY_INFORMATION | PROCESS_VM_READ; invalid when the process cannot be opened.
UniqueHandle OpenProcessMemory(unsigned pid);

// VirtualQueryEx at an address; false when the query fails.
bool QueryRegion(HANDLE process, uint64_t address, MEMORY_BASIC_INFORMATION& region);

inline bool IsCommittedPrivate(const MEMORY_BASIC_INFORMATION& region) {
    return region.State == MEM_COMMIT && region.Type == MEM_PRIVATE;
}

// Walks the regions from address 0, calling visit(region) for each, until a query fails, a region's size
// is 0 or at least sizeLimit. The next address is base + size cut to addressMask; the walk also ends where
// that cut wraps around (a 64-bit process seen through 32-bit addresses would otherwise walk forever).
template <typename Visit>
void WalkRegions(HANDLE process, uint64_t addressMask, uint64_t sizeLimit, Visit visit) {
    MEMORY_BASIC_INFORMATION region;
    uint64_t address = 0;
    while (QueryRegion(process, address, region) && region.RegionSize != 0 && region.RegionSize < sizeLimit) {
        visit(region);
        const uint64_t next = (reinterpret_cast<uint64_t>(region.BaseAddress) + region.RegionSize) & addressMask;
        if (next <= address) break;
        address = next;
    }
}

// The memory viewer's list: modules ("0x%.8X  [Image: %s]") and committed private regions
// ("0x%.8X  [Private: %d Bytes]"), in 32 bits; the walk ends at the first region of 0xFFFFFE bytes or more.
void FillAddressList32(HWND combo, unsigned pid);
// The Virtual Memory page's list: the same in 64 bits ("0x%16.16I64X (%s)", "0x%16.16I64X (%d Bytes)").
void FillAddressList64(HWND combo, unsigned pid);

// The system's message text for an error code.
const wchar_t* SystemErrorText(DWORD code);

}  // namespace lmvx
