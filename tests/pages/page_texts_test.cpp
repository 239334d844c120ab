// The text rules of the General, Start, Performance, Memory and Token pages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "props/page_texts.h"
#include "res/string_ids.h"

namespace lmvx {
namespace {

SYSTEMTIME Date(WORD year, WORD month, WORD day) {
    SYSTEMTIME time{};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    time.wHour = 13;
    return time;
}

TEST(DurationDays, NamesWholeDaysOnly) {
    // The provider packs whole days into wDay: 26 hours is one day, 50 hours two, under a day none.
    EXPECT_EQ(DurationDaysOf(0).textId, 0u);
    EXPECT_EQ(DurationDaysOf(1).textId, static_cast<unsigned>(IDS_ONE_DAY));
    EXPECT_EQ(DurationDaysOf(1).count, 1u);
    EXPECT_EQ(DurationDaysOf(2).textId, static_cast<unsigned>(IDS_DAYS));
    EXPECT_EQ(DurationDaysOf(2).count, 2u);
    EXPECT_EQ(DurationDaysOf(3).count, 3u);
}

TEST(DurationDays, AnyFieldMakesADurationNonEmpty) {
    EXPECT_TRUE(IsEmptyDuration(SYSTEMTIME{}));
    SYSTEMTIME fiveMinutes{};
    fiveMinutes.wMinute = 5;
    EXPECT_FALSE(IsEmptyDuration(fiveMinutes));
    SYSTEMTIME oneMillisecond{};
    oneMillisecond.wMilliseconds = 1;
    EXPECT_FALSE(IsEmptyDuration(oneMillisecond));
}

TEST(StartDay, TodayYesterdayAndDates) {
    const SYSTEMTIME today = Date(2026, 3, 15);
    EXPECT_EQ(StartDayOf(Date(2026, 3, 15), today), StartDay::Today);
    EXPECT_EQ(StartDayOf(Date(2026, 3, 14), today), StartDay::Yesterday);
    EXPECT_EQ(StartDayOf(Date(2026, 3, 13), today), StartDay::Date);
    EXPECT_EQ(StartDayOf(Date(2025, 3, 14), today), StartDay::Date);
    EXPECT_EQ(StartDayOf(Date(2026, 2, 14), today), StartDay::Date);
    EXPECT_EQ(StartDayOf(Date(0, 1, 1), today), StartDay::Unknown);
    EXPECT_EQ(StartDayOf(Date(1601, 1, 1), today), StartDay::Unknown);
}

TEST(StartDay, TheLastDayOfAMonthSeenOnTheFirstIsADate) {
    EXPECT_EQ(StartDayOf(Date(2026, 2, 28), Date(2026, 3, 1)), StartDay::Date);
    EXPECT_EQ(StartDayOf(Date(2025, 12, 31), Date(2026, 1, 1)), StartDay::Date);
}

TEST(NumericVersion, SplitsBothHalves) {
    EXPECT_EQ(NumericVersionText(0x00050002, 0x00030004), L"5.2.3.4");
    EXPECT_EQ(NumericVersionText(0xFFFF0000, 0x0000FFFF), L"65535.0.0.65535");
    EXPECT_EQ(NumericVersionText(0, 0), L"0.0.0.0");
}

using Rows = std::vector<std::pair<std::wstring, std::wstring>>;

Rows Cut(const std::wstring& block) {
    Rows rows;
    for (const EnvironmentEntry& entry : CutEnvironmentBlock(block)) rows.emplace_back(entry.name, entry.value);
    return rows;
}

TEST(EnvironmentBlock, CutsEachStringAtItsFirstEquals) {
    EXPECT_EQ(Cut(std::wstring(L"A=1\0PATH=C:\\x;C:\\y\0B=c=d\0\0", 27)),
              (Rows{{L"A", L"1"}, {L"PATH", L"C:\\x;C:\\y"}, {L"B", L"c=d"}}));
}

TEST(EnvironmentBlock, PerDriveEntriesHaveAnEmptyName) {
    EXPECT_EQ(Cut(std::wstring(L"=C:=C:\\work\0=D:=D:\\\0A=1\0\0", 26)),
              (Rows{{L"", L"C:=C:\\work"}, {L"", L"D:=D:\\"}, {L"A", L"1"}}));
}

TEST(EnvironmentBlock, AStringWithoutEqualsTakesTheNextStringAsItsValue) {
    EXPECT_EQ(Cut(std::wstring(L"LONE\0NEXT=1\0A=2\0\0", 18)), (Rows{{L"LONE", L"NEXT=1"}, {L"A", L"2"}}));
}

TEST(EnvironmentBlock, OneLeadingNullIsSkipped) {
    EXPECT_EQ(Cut(std::wstring(L"\0A=1\0\0", 6)), (Rows{{L"A", L"1"}}));
    EXPECT_EQ(Cut(std::wstring(L"\0\0A=1\0\0", 7)), Rows{});
}

TEST(EnvironmentBlock, NeverReadsPastTheBlock) {
    // Without the final empty string, and cut in the middle of a string.
    EXPECT_EQ(Cut(std::wstring(L"A=1\0B=2", 7)), (Rows{{L"A", L"1"}, {L"B", L"2"}}));
    EXPECT_EQ(Cut(std::wstring(L"A=1\0LONE", 8)), (Rows{{L"A", L"1"}, {L"LONE", L""}}));
    EXPECT_EQ(Cut(std::wstring(L"A=", 2)), (Rows{{L"A", L""}}));
    EXPECT_EQ(Cut(std::wstring(L"LONE\0\0", 6)), (Rows{{L"LONE", L""}}));
    EXPECT_EQ(Cut(std::wstring()), Rows{});
}

TEST(GroupFlags, NameTheStrongestAttributeThenRestricted) {
    struct Case {
        DWORD attributes;
        std::vector<unsigned> ids;
    };
    const Case cases[] = {
        {SE_GROUP_MANDATORY | SE_GROUP_ENABLED_BY_DEFAULT | SE_GROUP_ENABLED, {IDS_FLAG_MANDATORY}},
        {SE_GROUP_OWNER | SE_GROUP_MANDATORY | SE_GROUP_ENABLED, {IDS_FLAG_OWNER}},
        {SE_GROUP_ENABLED_BY_DEFAULT | SE_GROUP_ENABLED, {IDS_FLAG_DEFAULT}},
        {SE_GROUP_ENABLED, {IDS_FLAG_ENABLED}},
        {SE_GROUP_USE_FOR_DENY_ONLY, {IDS_FLAG_RESTRICTED}},
        {SE_GROUP_OWNER | SE_GROUP_USE_FOR_DENY_ONLY, {IDS_FLAG_OWNER, IDS_FLAG_RESTRICTED}},
        {SE_GROUP_LOGON_ID, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(GroupFlagTextIds(c.attributes), c.ids) << std::hex << c.attributes;
}

TEST(PrivilegeFlags, AppendEveryAttributeInOrder) {
    struct Case {
        DWORD attributes;
        std::vector<unsigned> ids;
    };
    const Case cases[] = {
        {0, {IDS_FLAG_DISABLED}},
        {SE_PRIVILEGE_ENABLED_BY_DEFAULT | SE_PRIVILEGE_ENABLED, {IDS_FLAG_DEFAULT, IDS_FLAG_ENABLED}},
        {SE_PRIVILEGE_ENABLED, {IDS_FLAG_ENABLED}},
        {SE_PRIVILEGE_REMOVED, {IDS_FLAG_REMOVED}},
        {SE_PRIVILEGE_USED_FOR_ACCESS | SE_PRIVILEGE_ENABLED, {IDS_FLAG_ENABLED, IDS_FLAG_USED_FOR_ACCESS}},
    };
    for (const Case& c : cases) EXPECT_EQ(PrivilegeFlagTextIds(c.attributes), c.ids) << std::hex << c.attributes;
}

}  // namespace
}  // namespace lmvx
