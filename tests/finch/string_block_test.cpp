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

// A block cut short keeps the strings that fit whole; a count past the end, an odd trailing byte or no data
// at all give empty strings.
TEST(StringBlock, DataCutShortOddOrMissingLeavesEmptySlots) {
    const auto parse = [](const std::vector<wchar_t>& data, size_t bytes) { return finch::ParseStringBlock(data.data(), bytes); };
    std::vector<wchar_t> data = MakeBlock(std::vector<std::wstring>(16, L"abc"));
    data.resize(4 + 2);   // slot 0 whole, slot 1's count and one of its three characters
    const finch::StringBlock cut = parse(data, data.size() * sizeof(wchar_t));
    EXPECT_EQ(L"abc", cut[0]);
    for (size_t slot = 1; slot < 16; ++slot) EXPECT_TRUE(cut[slot].empty()) << slot;
    const std::vector<wchar_t> pastTheEnd = {static_cast<wchar_t>(0xFFFF), L'a'};
    const std::vector<wchar_t> odd = MakeBlock({L"ab"});
    for (const finch::StringBlock& block : {parse(pastTheEnd, 2 * sizeof(wchar_t)), parse(odd, odd.size() * sizeof(wchar_t) - 1),
                                            finch::ParseStringBlock(nullptr, 64)}) {
        for (const std::wstring& text : block) EXPECT_TRUE(text.empty());
    }
}

}  // namespace
