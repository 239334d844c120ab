// The bounded wide formatted print: Windows-style conversions, termination and cuts at exact byte sizes.
#include "platform/finch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

constexpr wchar_t Sentinel = L'#';

template <size_t N>
void FillWithSentinel(wchar_t (&buffer)[N]) {
    std::fill(std::begin(buffer), std::end(buffer), Sentinel);
}

int FormatThroughVaList(wchar_t* buffer, size_t bytes, const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    const int written = APIP_FormatStringV(buffer, bytes, format, args);
    va_end(args);
    return written;
}

TEST(FormatString, WideStringArgumentIsReadAsWide) {
    wchar_t buffer[64];
    const int written = APIP_FormatString(buffer, sizeof(buffer), L"%s=%d", L"Gr\u00f6\u00dfe", 42);
    EXPECT_STREQ(L"Gr\u00f6\u00dfe=42", buffer);
    EXPECT_EQ(static_cast<int>(std::wcslen(buffer)), written);
}

TEST(FormatString, WindowsConversions) {
    wchar_t buffer[64];
    APIP_FormatString(buffer, sizeof(buffer), L"0x%.8X|%X|%u", 0x1A2Bu, 0xFFu, 4000000000u);
    EXPECT_STREQ(L"0x00001A2B|FF|4000000000", buffer);
    APIP_FormatString(buffer, sizeof(buffer), L"%s, %.2d:%.2d:%.2d", L"Today", 7, 5, 30);
    EXPECT_STREQ(L"Today, 07:05:30", buffer);
    APIP_FormatString(buffer, sizeof(buffer), L"CPU Usage: %d%%", 12);
    EXPECT_STREQ(L"CPU Usage: 12%", buffer);
    APIP_FormatString(buffer, sizeof(buffer), L"%d", -17);
    EXPECT_STREQ(L"-17", buffer);
}

TEST(FormatString, SixtyFourBitConversions) {
    const std::uint64_t largest = UINT64_MAX;
    const std::int64_t smallest = INT64_MIN;
    const std::wstring largestText = std::to_wstring(largest);
    const std::wstring smallestText = std::to_wstring(smallest);
    wchar_t buffer[64];

    APIP_FormatString(buffer, sizeof(buffer), L"%I64u", largest);
    EXPECT_EQ(largestText, buffer);
    APIP_FormatString(buffer, sizeof(buffer), L"%llu", static_cast<unsigned long long>(largest));
    EXPECT_EQ(largestText, buffer);
    APIP_FormatString(buffer, sizeof(buffer), L"%I64d", smallest);
    EXPECT_EQ(smallestText, buffer);
    // A 64-bit argument must not shift the ones after it.
    APIP_FormatString(buffer, sizeof(buffer), L"%I64u/%d", largest, 9);
    EXPECT_EQ(largestText + L"/9", buffer);
}

TEST(FormatString, VaListFormWritesTheSameText) {
    wchar_t direct[32];
    wchar_t throughList[32];
    const int directCount = APIP_FormatString(direct, sizeof(direct), L"%s %d", L"abc", 5);
    const int listCount = FormatThroughVaList(throughList, sizeof(throughList), L"%s %d", L"abc", 5);
    EXPECT_STREQ(direct, throughList);
    EXPECT_EQ(directCount, listCount);
}

// Each whole-character buffer size from 1 to past the text: the text is cut to size - 1 characters,
// terminated, and nothing after the buffer is touched.
TEST(FormatString, CutsAtEveryExactBufferSize) {
    const std::wstring text = L"abcdefghij";
    for (size_t characters = 1; characters <= text.size() + 2; ++characters) {
        SCOPED_TRACE(characters);
        wchar_t buffer[16];
        FillWithSentinel(buffer);
        const int written = APIP_FormatString(buffer, characters * sizeof(wchar_t), L"%s", text.c_str());
        const size_t expectedLength = std::min(text.size(), characters - 1);
        EXPECT_EQ(static_cast<int>(expectedLength), written);
        EXPECT_EQ(text.substr(0, expectedLength), std::wstring(buffer));
        EXPECT_EQ(L'\0', buffer[expectedLength]);
        for (size_t i = characters; i < std::size(buffer); ++i) EXPECT_EQ(Sentinel, buffer[i]) << i;
    }
}

// Sizes at the edges: exactly fitting, odd byte counts (whole characters only), no room for even the
// terminator (left alone), room for the terminator only, a surrogate pair at the cut, no format.
TEST(FormatString, EdgeSizesSurrogatesAndNullFormat) {
    wchar_t buffer[8];
    FillWithSentinel(buffer);
    EXPECT_EQ(5, APIP_FormatString(buffer, 6 * sizeof(wchar_t), L"%d", 12345));
    EXPECT_STREQ(L"12345", buffer);
    FillWithSentinel(buffer);
    EXPECT_EQ(2, APIP_FormatString(buffer, 7, L"%s", L"abcdef"));   // 7 bytes: three whole characters
    EXPECT_STREQ(L"ab", buffer);
    EXPECT_EQ(Sentinel, buffer[3]);
    FillWithSentinel(buffer);
    EXPECT_EQ(0, APIP_FormatString(buffer, 0, L"%s", L"abc"));
    EXPECT_EQ(0, APIP_FormatString(buffer, 1, L"%s", L"abc"));
    EXPECT_EQ(Sentinel, buffer[0]);
    EXPECT_EQ(0, APIP_FormatString(buffer, sizeof(wchar_t), L"%s", L"abc"));
    EXPECT_EQ(L'\0', buffer[0]);
    EXPECT_EQ(Sentinel, buffer[1]);
    // "a" and one character outside the basic plane (two UTF-16 units), with room for two units only.
    EXPECT_EQ(1, APIP_FormatString(buffer, 3 * sizeof(wchar_t), L"a%s", L"\U0001F600"));
    EXPECT_STREQ(L"a", buffer);
    FillWithSentinel(buffer);
    EXPECT_EQ(0, APIP_FormatString(buffer, sizeof(buffer), nullptr));
    EXPECT_EQ(L'\0', buffer[0]);
}

}  // namespace
