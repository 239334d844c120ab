#include "memory/memory_search_scan.h"

#include <memory>
#include <new>

#include "memory/memory_string_scan.h"
#include "memory/process_memory.h"

namespace lmvx {
namespace {

constexpr uint64_t kRegionSizeLimit = 0xFFFFFFFE;
constexpr ULONGLONG kPumpInterval = 10;  // milliseconds

uint64_t RegionBase(const MEMORY_BASIC_INFORMATION& region) { return reinterpret_cast<uintptr_t>(region.BaseAddress); }

bool UsableRegion(HANDLE process, uint32_t address, MEMORY_BASIC_INFORMATION& region) {
    return QueryRegion(process, address, region) && region.RegionSize != 0 && region.RegionSize < kRegionSizeLimit;
}

struct ChunkResults {
    const MemorySearchCallbacks* callbacks;
    uint32_t chunkAddress;
};

void ReportString(void* context, size_t offset, const char16_t* text, size_t length, bool) {
    const auto& chunk = *static_cast<const ChunkResults*>(context);
    wchar_t wide[kSearchMaxLength + 1];
    for (size_t k = 0; k < length; ++k) wide[k] = static_cast<wchar_t>(text[k]);
    wide[length] = L'\0';
    chunk.callbacks->found(chunk.callbacks->context, chunk.chunkAddress + static_cast<uint32_t>(offset), wide);
}

}  // namespace

uint32_t CommittedPrivateTotal(HANDLE process) {
    uint32_t total = 0;
    WalkRegions(process, 0xFFFFFFFFu, kRegionSizeLimit, [&](const MEMORY_BASIC_INFORMATION& region) {
        if (IsCommittedPrivate(region)) total += static_cast<uint32_t>(region.RegionSize);
    });
    return total;
}

bool SearchProcessMemory(HANDLE process, MemorySearchState& state, const MemorySearchCallbacks& callbacks) {
    state.totalBytes = CommittedPrivateTotal(process);
    std::unique_ptr<uint8_t[]> chunk(new (std::nothrow) uint8_t[kSearchChunkLength]);
    if (!chunk) return false;
    uint32_t a = 0;
    // The end of the committed private region the last chunk was read from. The next chunk of that region
    // needs no query of its own: the query would only repeat what the last one said, and a query costs as
    // much as reading the chunk. A failed read forgets it, so that the next step asks again.
    uint64_t readableEnd = 0;
    ULONGLONG lastPump = 0;
    for (;;) {
        MEMORY_BASIC_INFORMATION region{};
        bool committedPrivate = true;
        uint64_t regionEnd = readableEnd;
        if (a >= readableEnd) {
            if (!UsableRegion(process, a, region)) {
                if (!UsableRegion(process, a + 1, region)) break;
                ++a;
            }
            committedPrivate = IsCommittedPrivate(region);
            regionEnd = RegionBase(region) + region.RegionSize;
        }
        // Looking at the queue is a round trip to the window system as well, so the windows get their
        // messages every few milliseconds (and on the first step), not for every chunk; cancel is read
        // at every step.
        const ULONGLONG now = GetTickCount64();
        if (callbacks.pump && (lastPump == 0 || now - lastPump >= kPumpInterval)) {
            callbacks.pump(callbacks.context);
            lastPump = now;
        }
        if (state.cancel) break;
        state.currentAddress = a;
        uint64_t next;
        if (committedPrivate) {
            const uint64_t left = regionEnd - a;
            const SIZE_T length = static_cast<SIZE_T>(left < kSearchChunkLength ? left : kSearchChunkLength);
            SIZE_T read = 0;
            if (ReadProcessMemory(process, reinterpret_cast<const void*>(static_cast<uintptr_t>(a)), chunk.get(),
                                  length, &read)) {
                state.bytesRead += static_cast<uint32_t>(read);
                ChunkResults results{&callbacks, a};
                ScanMemoryChunk(chunk.get(), read, {ReportString, &results});
                readableEnd = regionEnd;
            } else {
                read = length;
                readableEnd = 0;
            }
            // The byte after each chunk is never examined: intended.
            next = static_cast<uint64_t>(a) + read + 1;
        } else {
            next = regionEnd;
        }
        // 32-bit addresses: the walk ends where they would wrap around.
        if (next > 0xFFFFFFFFu || next <= a) break;
        a = static_cast<uint32_t>(next);
    }
    return true;
}

}  // namespace lmvx
