// The memory search's walk over real processes: the chunks of a region of this process, and a child that
// ends before the walk.
#include "memory/memory_search_scan.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "memory/process_memory.h"
#include "memory_child.h"

namespace {

using Strings = std::set<std::pair<uint32_t, std::wstring>>;

// The strings found in [first, last); only those, since what a search of this process keeps is itself
// searched later on.
struct Collected {
    uint32_t first = 0, last = 0xFFFFFFFF;
    Strings strings;
    lmvx::MemorySearchCallbacks Callbacks() {
        return {[](void* context, uint32_t address, const wchar_t* text) {
                    auto* collected = static_cast<Collected*>(context);
                    if (address >= collected->first && address < collected->last) collected->strings.emplace(address, text);
                },
                nullptr, this};
    }
};

// A committed region behind a reserved one, so that the walk reaches it at its base: its chunks start at
// base, base + 40961, base + 2 * 40961, ... The byte after each chunk is never examined, and a string
// across a chunk's end is cut there.
TEST(MemorySearch, ReadsARegionChunkByChunkSkippingTheByteAfterEach) {
    constexpr uint32_t kChunk = lmvx::kSearchChunkLength;
    constexpr uint32_t kCommitted = 4 * kChunk;
    char* reserved = nullptr;
    for (uintptr_t at = 0x20000000; !reserved && at < 0xC0000000; at += 0x1000000) {
        reserved = static_cast<char*>(
            VirtualAlloc(reinterpret_cast<void*>(at), 0x20000 + kCommitted, MEM_RESERVE, PAGE_READWRITE));
    }
    ASSERT_TRUE(reserved);
    char* base = static_cast<char*>(VirtualAlloc(reserved + 0x10000, kCommitted, MEM_COMMIT, PAGE_READWRITE));
    ASSERT_TRUE(base);
    memcpy(base + kChunk - 6, "ChunkEdgeString", 15);  // "d" is the byte after the first chunk
    memcpy(base + 50000, "SecondChunkString", 17);
    memcpy(base + 90000, L"WideInTheThirdChunk", 19 * sizeof(wchar_t));
    memcpy(base + 3 * (kChunk + 1) + 100, "FourthChunkString", 17);
    const uint32_t at = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(base));

    lmvx::UniqueHandle self = lmvx::OpenProcessMemory(GetCurrentProcessId());
    lmvx::MemorySearchState state;
    Collected found{at, at + kCommitted};
    ASSERT_TRUE(lmvx::SearchProcessMemory(self.Get(), state, found.Callbacks()));
    const Strings expected = {{at + kChunk - 6, L"ChunkE"}, {at + kChunk + 1, L"geString"},
                              {at + 50000, L"SecondChunkString"}, {at + 90000, L"WideInTheThirdChunk"},
                              {at + 3 * (kChunk + 1) + 100, L"FourthChunkString"}};
    EXPECT_EQ(found.strings, expected);
    EXPECT_GE(state.bytesRead.load(), kCommitted - 3);
    EXPECT_GE(state.totalBytes.load(), kCommitted);
    VirtualFree(reserved, 0, MEM_RELEASE);
}

TEST(MemorySearch, AnEndedProcessEndsTheWalk) {
    memory_test::MemoryChild child;
    ASSERT_TRUE(child.Ready());
    lmvx::UniqueHandle process = lmvx::OpenProcessMemory(child.Pid());
    child.Process().End();
    lmvx::MemorySearchState state;
    Collected found;
    EXPECT_TRUE(lmvx::SearchProcessMemory(process.Get(), state, found.Callbacks()));
    EXPECT_EQ(found.strings.count({static_cast<uint32_t>(child.Ascii()), L"LumivexAsciiMarker"}), 0u);
}

}  // namespace
