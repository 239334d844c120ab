// The texts of the Threads page: cells, start addresses, start days and durations.
#include "props/thread_texts.h"

#include <gtest/gtest.h>

#include "resource.h"

namespace {

const lmvx::DateTexts kDates{L"Today", L"Yesterday", L"%d/%d%/%d", L"Unknown"};
const lmvx::DayTexts kDays{L"%d Day ", L"%d Days "};

SYSTEMTIME Date(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0, WORD second = 0) {
    return {year, month, 0, day, hour, minute, second, 0};
}

// A duration as the library packs it: whole days plus one in the day field.
SYSTEMTIME Duration(WORD dayField, WORD hour, WORD minute = 0, WORD second = 0, WORD milliseconds = 0) {
    return {1601, 1, 0, dayField, hour, minute, second, milliseconds};
}

TEST(ThreadTexts, PriorityLevelsWithATextOfTheirOwnAndAnIdleThreadsEmptyCpuCell) {
    const std::pair<int, unsigned> levels[] = {{15, IDS_PRIORITY_TIME_CRITICAL}, {-2, IDS_PRIORITY_LOW},
                                               {-15, IDS_PRIORITY_IDLE}, {0, IDS_PRIORITY_NORMAL}, {3, 0}, {-3, 0}};
    for (const auto& [level, textId] : levels) EXPECT_EQ(textId, lmvx::ThreadPriorityTextId(level)) << level;
    EXPECT_EQ(L"", lmvx::ThreadCpuCell(0.0));
    EXPECT_EQ(L"0.01%", lmvx::ThreadCpuCell(0.006));
    EXPECT_EQ(L"0.00%", lmvx::ThreadCpuPercent(0.0));
}

TEST(ThreadTexts, StartAddressRules) {
    EXPECT_EQ(L"named", lmvx::ThreadStartAddressCell(L"named", L"x.dll", 0x1000, 0x400));
    EXPECT_EQ(L"x.dll+0x1A20", lmvx::ThreadStartAddressCell(L"", L"x.dll", 0x7FF600001A20ull, 0x00000000u));
    EXPECT_EQ(L"x.dll+0x1A20", lmvx::ThreadStartAddressCell(L"", L"x.dll", 0x7FF612341A20ull, 0x12340000u));
    EXPECT_EQ(L"0x12345678", lmvx::ThreadStartAddressCell(L"", L"", 0x7FF612345678ull, 0)) << "low 32 bits only";
    EXPECT_EQ(L"", lmvx::ThreadStartAddressCell(L"", L"", 0, 0));
}

TEST(ThreadTexts, StartDays) {
    const SYSTEMTIME today = Date(2026, 3, 1, 9);
    EXPECT_EQ(L"Today, 08:05:04", lmvx::ThreadStartTimeText(Date(2026, 3, 1, 8, 5, 4), today, kDates));
    // The last day of the previous month is not "Yesterday" (intended).
    EXPECT_EQ(L"2/28/2026, 23:59:59", lmvx::ThreadStartTimeText(Date(2026, 2, 28, 23, 59, 59), today, kDates));
    EXPECT_EQ(L"Yesterday, 10:00:00", lmvx::ThreadStartTimeText(Date(2026, 3, 14, 10), Date(2026, 3, 15), kDates));
    EXPECT_EQ(L"Unknown", lmvx::ThreadStartTimeText(Date(1601, 1, 1), today, kDates));
    EXPECT_EQ(L"Unknown", lmvx::ThreadStartTimeText(Date(0, 0, 0), today, kDates));
}

TEST(ThreadTexts, DurationsShowDaysFromTheDayFieldOnly) {
    EXPECT_EQ(L" 05:00:00", lmvx::ThreadRuntimeText(Duration(1, 5), 2026, kDays, L"Unknown"));
    EXPECT_EQ(L"1 Day  02:00:00", lmvx::ThreadRuntimeText(Duration(2, 2), 2026, kDays, L"Unknown")) << "26 hours";
    EXPECT_EQ(L"2 Days  02:00:00", lmvx::ThreadRuntimeText(Duration(3, 2), 2026, kDays, L"Unknown")) << "50 hours";
    EXPECT_EQ(L"Unknown", lmvx::ThreadRuntimeText(Duration(3, 2), 1601, kDays, L"Unknown"));
    EXPECT_EQ(L"1 Day  00:00:01.250", lmvx::ThreadCpuTimeText(Duration(2, 0, 0, 1, 250), kDays));
    // A duration past a month shows only its days within the month (intended).
    SYSTEMTIME long40Days = Duration(10, 0);
    long40Days.wMonth = 2;
    EXPECT_EQ(L"9 Days  00:00:00.000", lmvx::ThreadCpuTimeText(long40Days, kDays));
}

}  // namespace
