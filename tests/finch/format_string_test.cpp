// The bounded wide formatted print: Windows-style conversions, termination and cuts at exact byte sizes.
#include "platform/finch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

constexpr wchar_t Sentinel = L'#';

int FormatThroughVaList(wchar_t* buffer, size_t bytes, const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    const int written = APIP_FormatStringV(buffer, bytes, format, args);
    va_end(args);
    return written;
}

// The text written into a roomy buffer, checked against the count the call returns.
template <typename... Args>
std::wstring Formatted(const wchar_t* format, Args... args) {
    wchar_t buffer[64];
    const int written = APIP_FormatString(buffer, sizeof(buffer), format, args...);
    EXPECT_EQ(static_cast<int>(std::wcslen(buffer)), written) << buffer;
    return buffer;
}

// Wide strings read as wide, Windows-style conversions, and 64-bit arguments that do not shift the ones after them.
TEST(FormatString, WindowsConversions) {
    const std::wstring largest = std::to_wstring(UINT64_MAX), smallest = std::to_wstring(INT64_MIN);
    const std::pair<std::wstring, std::wstring> cases[] = {
        {Formatted(L"%s=%d", L"Gr\u00f6\u00dfe", 42), L"Gr\u00f6\u00dfe=42"},
        {Formatted(L"0x%.8X|%X|%u", 0x1A2Bu, 0xFFu, 4000000000u), L"0x00001A2B|FF|4000000000"},
        {Formatted(L"%s, %.2d:%.2d:%.2d", L"Today", 7, 5, 30), L"Today, 07:05:30"},
        {Formatted(L"CPU Usage: %d%%", 12), L"CPU Usage: 12%"},
        {Formatted(L"%d", -17), L"-17"},
        {Formatted(L"%llu", static_cast<unsigned long long>(UINT64_MAX)), largest},
        {Formatted(L"%I64d", static_cast<std::int64_t>(INT64_MIN)), smallest},
        {Formatted(L"%I64u/%d", UINT64_MAX, 9), largest + L"/9"},
    };
    for (const auto& [written, expected] : cases) EXPECT_EQ(expected, written);
    wchar_t throughList[32];
    EXPECT_EQ(5, FormatThroughVaList(throughList, sizeof(throughList), L"%s %d", L"abc", 5));
    EXPECT_STREQ(L"abc 5", throughList);
}

// Each whole-character buffer size from 1 to past the text: the text is cut to size - 1 characters,
// terminated, and nothing after the buffer is touched.
TEST(FormatString, CutsAtEveryExactBufferSize) {
    const std::wstring text = L"abcdefghij";
    for (size_t characters = 1; characters <= text.size() + 2; ++characters) {
        SCOPED_TRACE(characters);
        wchar_t buffer[16];
        std::fill(std::begin(buffer), std::end(buffer), Sentinel);
        const int written = APIP_FormatString(buffer, characters * sizeof(wchar_t), L"%s", text.c_str());
        const size_t expectedLength = std::min(text.size(), characters - 1);
        EXPECT_EQ(static_cast<int>(expectedLength), written);
        EXPECT_EQ(text.substr(0, expectedLength), std::wstring(buffer));
        EXPECT_EQ(L'\0', buffer[expectedLength]);
        for (size_t i = characters; i < std::size(buffer); ++i) EXPECT_EQ(Sentinel, buffer[i]) << i;
    }
}

// Sizes at the edges: odd byte counts (whole characters only), no room for even the terminator (left alone),
// a surrogate pair at the cut, no format.
TEST(FormatString, EdgeSizesSurrogatesAndNullFormat) {
    wchar_t buffer[8];
    std::fill(std::begin(buffer), std::end(buffer), Sentinel);
    EXPECT_EQ(2, APIP_FormatString(buffer, 7, L"%s", L"abcdef"));   // 7 bytes: three whole characters
    EXPECT_STREQ(L"ab", buffer);
    EXPECT_EQ(Sentinel, buffer[3]);
    std::fill(std::begin(buffer), std::end(buffer), Sentinel);
    EXPECT_EQ(0, APIP_FormatString(buffer, 0, L"%s", L"abc"));
    EXPECT_EQ(0, APIP_FormatString(buffer, 1, L"%s", L"abc"));
    EXPECT_EQ(Sentinel, buffer[0]);
    // "a" and one character outside the basic plane (two UTF-16 units), with room for two units only.
    EXPECT_EQ(1, APIP_FormatString(buffer, 3 * sizeof(wchar_t), L"a%s", L"\U0001F600"));
    EXPECT_STREQ(L"a", buffer);
    std::fill(std::begin(buffer), std::end(buffer), Sentinel);
    EXPECT_EQ(0, APIP_FormatString(buffer, sizeof(buffer), nullptr));
    EXPECT_EQ(L'\0', buffer[0]);
}

}  // namespace
