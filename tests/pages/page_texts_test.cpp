// The text rules of the General, Start, Performance, Memory and Token pages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "props/page_texts.h"
#include "res/string_ids.h"

namespace lmvx {
namespace {

SYSTEMTIME Date(WORD year, WORD month, WORD day) { return {year, month, 0, day, 13, 0, 0, 0}; }

TEST(DurationDays, NamesWholeDaysOnlyAndAnyFieldMakesADurationNonEmpty) {
    // The provider packs whole days into wDay: 26 hours is one day, 50 hours two, under a day none.
    const std::pair<unsigned, unsigned> days[] = {{0, 0}, {1, IDS_ONE_DAY}, {2, IDS_DAYS}, {3, IDS_DAYS}};
    for (const auto& [count, textId] : days) {
        EXPECT_EQ(DurationDaysOf(count).textId, textId) << count;
        if (textId) { EXPECT_EQ(DurationDaysOf(count).count, count); }
    }
    EXPECT_TRUE(IsEmptyDuration(SYSTEMTIME{}));
    EXPECT_FALSE(IsEmptyDuration(SYSTEMTIME{0, 0, 0, 0, 0, 5, 0, 0}));
    EXPECT_FALSE(IsEmptyDuration(SYSTEMTIME{0, 0, 0, 0, 0, 0, 0, 1}));
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
    // The last day of a month seen on the first is a date.
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

// Each string is cut at its first "="; per-drive entries have an empty name; a string without "=" takes the
// next string as its value; one leading null is skipped; the cut never reads past the block.
TEST(EnvironmentBlock, CutsEachStringAtItsFirstEquals) {
    const std::pair<std::wstring, Rows> cases[] = {
        {{L"LONE\0NEXT=1\0A=2\0\0", 18}, {{L"LONE", L"NEXT=1"}, {L"A", L"2"}}},
        {{L"\0A=1\0\0", 6}, {{L"A", L"1"}}},
        {{L"\0\0A=1\0\0", 7}, {}},
        {{L"A=1\0B=2", 7}, {{L"A", L"1"}, {L"B", L"2"}}},   // without the final empty string
        {{L"A=1\0LONE", 8}, {{L"A", L"1"}, {L"LONE", L""}}},
        {{L"A=", 2}, {{L"A", L""}}},
        {{L"LONE\0\0", 6}, {{L"LONE", L""}}},
        {{}, {}},
    };
    for (const auto& [block, rows] : cases) EXPECT_EQ(Cut(block), rows) << testing::PrintToString(block);
}

// A group names its strongest attribute, then Restricted; a privilege appends every attribute in order.
TEST(TokenFlags, GroupsNameTheStrongestAttributeThenRestrictedPrivilegesAppendEveryAttribute) {
    const std::pair<DWORD, std::vector<unsigned>> groups[] = {
        {SE_GROUP_MANDATORY | SE_GROUP_ENABLED_BY_DEFAULT | SE_GROUP_ENABLED, {IDS_FLAG_MANDATORY}},
        {SE_GROUP_OWNER | SE_GROUP_MANDATORY | SE_GROUP_ENABLED, {IDS_FLAG_OWNER}},
        {SE_GROUP_ENABLED_BY_DEFAULT | SE_GROUP_ENABLED, {IDS_FLAG_DEFAULT}},
        {SE_GROUP_ENABLED, {IDS_FLAG_ENABLED}},
        {SE_GROUP_USE_FOR_DENY_ONLY, {IDS_FLAG_RESTRICTED}},
        {SE_GROUP_OWNER | SE_GROUP_USE_FOR_DENY_ONLY, {IDS_FLAG_OWNER, IDS_FLAG_RESTRICTED}},
        {SE_GROUP_LOGON_ID, {}},
    };
    for (const auto& [attributes, ids] : groups) EXPECT_EQ(GroupFlagTextIds(attributes), ids) << std::hex << attributes;
    const std::pair<DWORD, std::vector<unsigned>> privileges[] = {
        {0, {IDS_FLAG_DISABLED}},
        {SE_PRIVILEGE_ENABLED_BY_DEFAULT | SE_PRIVILEGE_ENABLED, {IDS_FLAG_DEFAULT, IDS_FLAG_ENABLED}},
        {SE_PRIVILEGE_ENABLED, {IDS_FLAG_ENABLED}},
        {SE_PRIVILEGE_REMOVED, {IDS_FLAG_REMOVED}},
        {SE_PRIVILEGE_USED_FOR_ACCESS | SE_PRIVILEGE_ENABLED, {IDS_FLAG_ENABLED, IDS_FLAG_USED_FOR_ACCESS}},
    };
    for (const auto& [attributes, ids] : privileges) {
        EXPECT_EQ(PrivilegeFlagTextIds(attributes), ids) << std::hex << attributes;
    }
}

}  // namespace
}  // namespace lmvx
