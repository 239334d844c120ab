// The memory search's walk over a real child process: strings found at their true addresses, Cancel.
#include "memory/memory_search_scan.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "memory/process_memory.h"
#include "memory_child.h"

namespace {

struct Collected {
    std::multimap<std::wstring, uint32_t> strings;
    lmvx::MemorySearchState* state = nullptr;
    int pumpsUntilCancel = -1;
};

lmvx::MemorySearchCallbacks Collect(Collected& collected) {
    return {[](void* context, uint32_t address, const wchar_t* text) {
                static_cast<Collected*>(context)->strings.emplace(text, address);
            },
            [](void* context) {
                auto* collected = static_cast<Collected*>(context);
                if (collected->pumpsUntilCancel >= 0 && collected->pumpsUntilCancel-- == 0) collected->state->cancel = 1;
            },
            &collected};
}

TEST(MemorySearch, FindsAsciiAndUtf16StringsAtTheirAddresses) {
    memory_test::MemoryChild child;
    ASSERT_TRUE(child.Ready());
    lmvx::UniqueHandle process = lmvx::OpenProcessMemory(child.Pid());
    ASSERT_TRUE(process);
    lmvx::MemorySearchState state;
    Collected collected;
    ASSERT_TRUE(lmvx::SearchProcessMemory(process.Get(), state, Collect(collected)));
    const auto ascii = collected.strings.equal_range(L"LumivexAsciiMarker");
    const auto wide = collected.strings.equal_range(L"LumivexWideMarker");
    ASSERT_EQ(std::distance(ascii.first, ascii.second), 1);
    ASSERT_EQ(std::distance(wide.first, wide.second), 1);
    EXPECT_EQ(ascii.first->second, static_cast<uint32_t>(child.Ascii()));
    EXPECT_EQ(wide.first->second, static_cast<uint32_t>(child.Wide()));
    EXPECT_GE(state.bytesRead.load(), 0x10000u);
    EXPECT_GE(state.totalBytes.load(), 0x10000u);
}

TEST(MemorySearch, CancelEndsTheWalkAtTheNextRegionStep) {
    memory_test::MemoryChild child;
    ASSERT_TRUE(child.Ready());
    lmvx::UniqueHandle process = lmvx::OpenProcessMemory(child.Pid());
    lmvx::MemorySearchState state;
    Collected collected;
    collected.state = &state;
    collected.pumpsUntilCancel = 0;
    ASSERT_TRUE(lmvx::SearchProcessMemory(process.Get(), state, Collect(collected)));
    EXPECT_TRUE(collected.strings.empty());
    EXPECT_EQ(state.bytesRead.load(), 0u);
}

TEST(MemorySearch, AnEndedProcessEndsTheWalk) {
    memory_test::MemoryChild child;
    ASSERT_TRUE(child.Ready());
    lmvx::UniqueHandle process = lmvx::OpenProcessMemory(child.Pid());
    child.Process().End();
    lmvx::MemorySearchState state;
    Collected collected;
    EXPECT_TRUE(lmvx::SearchProcessMemory(process.Get(), state, Collect(collected)));
    EXPECT_EQ(collected.strings.count(L"LumivexAsciiMarker"), 0u);
}

}  // namespace
