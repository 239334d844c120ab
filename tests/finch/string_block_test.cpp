// Reading the counted strings of one string-table block.
#include "libs/finch/string_block.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// A block as the resource compiler lays it out: per slot a count, then the characters.
std::vector<wchar_t> MakeBlock(const std::vector<std::wstring>& strings) {
    std::vector<wchar_t> data;
    for (const std::wstring& text : strings) {
        data.push_back(static_cast<wchar_t>(text.size()));
        data.insert(data.end(), text.begin(), text.end());
    }
    return data;
}

TEST(StringBlock, IdsMapToBlockAndBackToFirstId) {
    EXPECT_EQ(1u, finch::StringBlockOf(0));
    EXPECT_EQ(1u, finch::StringBlockOf(15));
    EXPECT_EQ(2u, finch::StringBlockOf(16));
    EXPECT_EQ(7u, finch::StringBlockOf(104));
    EXPECT_EQ(96u, finch::FirstStringIdOf(finch::StringBlockOf(104)));
}

TEST(StringBlock, ReadsAllSixteenSlots) {
    std::vector<std::wstring> strings(16);
    strings[0] = L"first";
    strings[5] = L"Prozesspriorit\u00e4t";
    strings[15] = L"last";
    const std::vector<wchar_t> data = MakeBlock(strings);
    const finch::StringBlock block = finch::ParseStringBlock(data.data(), data.size() * sizeof(wchar_t));
    for (size_t slot = 0; slot < 16; ++slot) EXPECT_EQ(strings[slot], block[slot]) << slot;
}

TEST(StringBlock, TextCutShortLeavesTheRestEmpty) {
    std::vector<std::wstring> strings(16, L"abc");
    std::vector<wchar_t> data = MakeBlock(strings);
    // Keep slot 0 whole and slot 1's count plus one of its three characters.
    data.resize(4 + 2);
    const finch::StringBlock block = finch::ParseStringBlock(data.data(), data.size() * sizeof(wchar_t));
    EXPECT_EQ(L"abc", block[0]);
    for (size_t slot = 1; slot < 16; ++slot) EXPECT_TRUE(block[slot].empty()) << slot;
}

TEST(StringBlock, CountPastTheEndIsNotRead) {
    const std::vector<wchar_t> data = {static_cast<wchar_t>(0xFFFF), L'a'};
    const finch::StringBlock block = finch::ParseStringBlock(data.data(), data.size() * sizeof(wchar_t));
    for (const std::wstring& text : block) EXPECT_TRUE(text.empty());
}

TEST(StringBlock, OddTrailingByteIsIgnored) {
    const std::vector<wchar_t> data = MakeBlock({L"ab"});
    const finch::StringBlock block = finch::ParseStringBlock(data.data(), data.size() * sizeof(wchar_t) - 1);
    EXPECT_TRUE(block[0].empty());
}

TEST(StringBlock, NoDataGivesEmptyStrings) {
    const finch::StringBlock block = finch::ParseStringBlock(nullptr, 64);
    for (const std::wstring& text : block) EXPECT_TRUE(text.empty());
}

}  // namespace
