// Version-resource block names, file version texts and link time stamps.
#include "version_text.h"

#include <gtest/gtest.h>

using namespace kestrel::detail;

TEST(TranslationBlockName, IsLanguageThenCodePageInLowerCaseHex) {
    EXPECT_EQ(TranslationBlockName(0x0409, 0x04B0), L"040904b0");
    EXPECT_EQ(TranslationBlockName(0x0407, 0x04E4), L"040704e4");
    EXPECT_EQ(TranslationBlockName(0, 0), L"00000000");
}

TEST(FormatFileVersion, JoinsTheFourParts) {
    EXPECT_EQ(FormatFileVersion(MAKELONG(2, 10), MAKELONG(4, 3)), L"10.2.3.4");
    EXPECT_EQ(FormatFileVersion(0, 0), L"0.0.0.0");
}

TEST(SystemTimeFromUnixSeconds, MatchesKnownDates) {
    const SYSTEMTIME epoch = SystemTimeFromUnixSeconds(0);
    EXPECT_EQ(epoch.wYear, 1970);
    EXPECT_EQ(epoch.wMonth, 1);
    EXPECT_EQ(epoch.wDay, 1);
    EXPECT_EQ(epoch.wDayOfWeek, 4);

    const SYSTEMTIME leapDay = SystemTimeFromUnixSeconds(951827696);   // 2000-02-29 12:34:56
    EXPECT_EQ(leapDay.wYear, 2000);
    EXPECT_EQ(leapDay.wMonth, 2);
    EXPECT_EQ(leapDay.wDay, 29);
    EXPECT_EQ(leapDay.wHour, 12);
    EXPECT_EQ(leapDay.wMinute, 34);
    EXPECT_EQ(leapDay.wSecond, 56);
    EXPECT_EQ(leapDay.wDayOfWeek, 2);

    const SYSTEMTIME last = SystemTimeFromUnixSeconds(0xFFFFFFFF);     // 2106-02-07 06:28:15
    EXPECT_EQ(last.wYear, 2106);
    EXPECT_EQ(last.wMonth, 2);
    EXPECT_EQ(last.wDay, 7);
    EXPECT_EQ(last.wHour, 6);
    EXPECT_EQ(last.wMinute, 28);
    EXPECT_EQ(last.wSecond, 15);
}

TEST(SystemTimeFromUnixSeconds, AgreesWithTheSystemConversion) {
    for (DWORD seconds : {DWORD{86399}, DWORD{1234567890}, DWORD{1700000000}, DWORD{4000000000u}}) {
        const unsigned long long ticks = 116444736000000000ULL + seconds * 10000000ULL;
        FILETIME fileTime{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        SYSTEMTIME expected{};
        ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &expected));
        const SYSTEMTIME actual = SystemTimeFromUnixSeconds(seconds);
        EXPECT_EQ(actual.wYear, expected.wYear);
        EXPECT_EQ(actual.wMonth, expected.wMonth);
        EXPECT_EQ(actual.wDay, expected.wDay);
        EXPECT_EQ(actual.wDayOfWeek, expected.wDayOfWeek);
        EXPECT_EQ(actual.wHour, expected.wHour);
        EXPECT_EQ(actual.wSecond, expected.wSecond);
    }
}
