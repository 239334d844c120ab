// The UI library's pure logic: the language copy of a resource, string-table blocks and wide-text helpers.
#include <gtest/gtest.h>

#include <cwchar>
#include <vector>

#include "libs/finch/resource_language.h"
#include "libs/finch/string_block.h"
#include "libs/finch/wide_text.h"

namespace {

// Which language copy of a resource the language module takes.
TEST(PickResourceLanguage, WantedThenAnotherVariantOfItThenEnglishThenAnyThenNothing) {
    const LANGID EnglishUs = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    const LANGID EnglishUk = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_UK);
    const LANGID German = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);
    const LANGID GermanAustria = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN_AUSTRIAN);
    const LANGID French = MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH);
    const LANGID Japanese = MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT);
    const struct {
        LANGID wanted;
        std::vector<LANGID> copies;
        LANGID picked;
    } cases[] = {
        {German, {EnglishUs, German}, German},          {German, {EnglishUs, GermanAustria}, GermanAustria},
        {German, {French, EnglishUs}, EnglishUs},       {German, {French, EnglishUk}, EnglishUk},
        {Japanese, {EnglishUk, EnglishUs}, EnglishUs},  {German, {French, Japanese}, French},
    };
    for (const auto& c : cases) EXPECT_EQ(c.picked, finch::PickResourceLanguage(c.wanted, c.copies)) << c.wanted;
    EXPECT_FALSE(finch::PickResourceLanguage(German, {}).has_value());
}

// A block as the resource compiler lays it out: per slot a count, then the characters.
std::vector<wchar_t> MakeBlock(const std::vector<std::wstring>& strings) {
    std::vector<wchar_t> data;
    for (const std::wstring& text : strings) {
        data.push_back(static_cast<wchar_t>(text.size()));
        data.insert(data.end(), text.begin(), text.end());
    }
    return data;
}

TEST(StringBlock, IdsMapToBlockAndBackAndAllSixteenSlotsAreRead) {
    EXPECT_EQ(1u, finch::StringBlockOf(0));
    EXPECT_EQ(1u, finch::StringBlockOf(15));
    EXPECT_EQ(2u, finch::StringBlockOf(16));
    EXPECT_EQ(7u, finch::StringBlockOf(104));
    EXPECT_EQ(96u, finch::FirstStringIdOf(finch::StringBlockOf(104)));
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

// Wide-text helpers: bounded copies, trimming system messages, the one-text form of a warning.
TEST(CopyBounded, CopiesWhatFitsTerminatedNullAsEmptyAndNothingForZeroCount) {
    wchar_t buffer[4] = {L'#', L'#', L'#', L'#'};
    finch::CopyBounded(buffer, 4, L"abcdef");
    EXPECT_STREQ(L"abc", buffer);
    finch::CopyBounded(buffer, 4, L"x");
    EXPECT_STREQ(L"x", buffer);
    finch::CopyBounded(buffer, 0, L"abc");
    EXPECT_STREQ(L"x", buffer);
    finch::CopyBounded(buffer, 4, nullptr);
    EXPECT_STREQ(L"", buffer);
}

TEST(TrailingLineBreaks, OnlyTrailingBreaksAndSpacesBeforeThemAreLeftOff) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"The system cannot find the file specified.\r\n", L"The system cannot find the file specified."},
        {L"Access is denied. \r\n\r\n", L"Access is denied."},
        {L"one\r\ntwo", L"one\r\ntwo"},
        {L"\r\n", L""},
    };
    for (const auto& [text, kept] : cases)
        EXPECT_EQ(std::wcslen(kept), finch::LengthWithoutTrailingLineBreaks(text, std::wcslen(text))) << text;
    EXPECT_EQ(0u, finch::LengthWithoutTrailingLineBreaks(nullptr, 5));
}

TEST(WarningMessage, AMissingHeadlineOrMessageIsLeftOut) {
    EXPECT_EQ(L"message", finch::ComposeWarningMessage(nullptr, L"message"));
    EXPECT_EQ(L"headline", finch::ComposeWarningMessage(L"headline", nullptr));
}

}  // namespace
