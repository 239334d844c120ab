// Version-resource block names, file version texts and link time stamps.
#include "version_text.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace kestrel::detail;

TEST(VersionText, BlockNameIsLanguageThenCodePageInLowerCaseHexAndTheVersionJoinsFourParts) {
    EXPECT_EQ(TranslationBlockName(0x0409, 0x04B0), L"040904b0");
    EXPECT_EQ(TranslationBlockName(0x0407, 0x04E4), L"040704e4");
    EXPECT_EQ(TranslationBlockName(0, 0), L"00000000");
    EXPECT_EQ(FormatFileVersion(MAKELONG(2, 10), MAKELONG(4, 3)), L"10.2.3.4");
    EXPECT_EQ(FormatFileVersion(0, 0), L"0.0.0.0");
}

auto Fields(const SYSTEMTIME& t) {
    return std::make_tuple(t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wDayOfWeek);
}

TEST(SystemTimeFromUnixSeconds, MatchesKnownDatesAndTheSystemConversion) {
    using Time = std::tuple<int, int, int, int, int, int, int>;   // year, month, day, h, m, s, day of week
    const std::pair<DWORD, Time> known[] = {
        {0, {1970, 1, 1, 0, 0, 0, 4}},
        {951827696, {2000, 2, 29, 12, 34, 56, 2}},    // a leap day
        {0xFFFFFFFF, {2106, 2, 7, 6, 28, 15, 0}},     // the last second
    };
    for (const auto& [seconds, time] : known) EXPECT_EQ(Time(Fields(SystemTimeFromUnixSeconds(seconds))), time) << seconds;
    for (DWORD seconds : {DWORD{86399}, DWORD{1234567890}, DWORD{1700000000}, DWORD{4000000000u}}) {
        const unsigned long long ticks = 116444736000000000ULL + seconds * 10000000ULL;
        FILETIME fileTime{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        SYSTEMTIME expected{};
        ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &expected));
        EXPECT_EQ(Fields(SystemTimeFromUnixSeconds(seconds)), Fields(expected)) << seconds;
    }
}
