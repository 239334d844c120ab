// What a properties window lists and says, as values in and text out: its pages in tree order, its exit
// notice, and the texts of the Threads page (cells, start addresses, start days and durations).
#include <gtest/gtest.h>

#include "props/page_selection.h"
#include "props/thread_texts.h"
#include "resource.h"

namespace lmvx {
namespace {

INT_PTR CALLBACK AnyPage(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

using Ctx = ProcessPropertiesContext;
using enum PageCondition;

// Creation order as the program has it: Modules is created fifth but listed after Network.
const PropertyPage kPages[] = {
    {195, {}, 1, Always, AnyPage, &Ctx::generalPage},
    {199, {}, 9, ModuleSnapshot, AnyPage, &Ctx::modulesPage},
    {7659, {}, 6, QueryAccess, AnyPage, &Ctx::handlesPage},
    {7657, {}, 8, Always, AnyPage, &Ctx::networkPage},
    {232, {}, 11, Always, nullptr, &Ctx::threadsPage},
    {255, {}, 12, TokenQuery, AnyPage, &Ctx::tokenPage},
    {7661, {}, 5, QueryAccess, AnyPage, &Ctx::virtualMemoryPage},
};

std::vector<unsigned> ListedDialogs(const ProcessAccess& access) {
    std::vector<unsigned> ids;
    for (size_t index : TreeOrder(kPages, access)) ids.push_back(kPages[index].dialogId);
    return ids;
}

TEST(PropertiesPageTree, ListsPagesByTreePositionAndLeavesOutWhatCannotBeOpened) {
    const std::pair<ProcessAccess, std::vector<unsigned>> cases[] = {
        {{true, true, true}, {195, 7661, 7659, 7657, 199, 255}},
        {{true, false, true}, {195, 7661, 7659, 7657, 199}},   // no token
        {{false, false, true}, {195, 7657, 199}},              // a process we may not query
        {{true, true, false}, {195, 7661, 7659, 7657, 255}},   // no module snapshot
    };
    for (const auto& [access, listed] : cases) EXPECT_EQ(ListedDialogs(access), listed);
}

TEST(PropertiesExitNotice, ShowsTheCodeSignedAndInHexadecimal) {
    const wchar_t* format = L"The process has exited with code %d (0x%X).";
    EXPECT_EQ(FormatExitNotice(format, 0), L"The process has exited with code 0 (0x0).");
    EXPECT_EQ(FormatExitNotice(format, 0xC0000005), L"The process has exited with code -1073741819 (0xC0000005).");
    EXPECT_EQ(FormatExitNotice(L"Der Prozess wurde mit Code %d (0x%X) beendet.", 259),
              L"Der Prozess wurde mit Code 259 (0x103) beendet.");
}

const DateTexts kDates{L"Today", L"Yesterday", L"%d/%d%/%d", L"Unknown"};
const DayTexts kDays{L"%d Day ", L"%d Days "};

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
    for (const auto& [level, textId] : levels) EXPECT_EQ(textId, ThreadPriorityTextId(level)) << level;
    EXPECT_EQ(L"", ThreadCpuCell(0.0));
    EXPECT_EQ(L"0.01%", ThreadCpuCell(0.006));
    EXPECT_EQ(L"0.00%", ThreadCpuPercent(0.0));
}

TEST(ThreadTexts, StartAddressRules) {
    EXPECT_EQ(L"named", ThreadStartAddressCell(L"named", L"x.dll", 0x1000, 0x400));
    EXPECT_EQ(L"x.dll+0x1A20", ThreadStartAddressCell(L"", L"x.dll", 0x7FF612341A20ull, 0x12340000u));
    EXPECT_EQ(L"0x12345678", ThreadStartAddressCell(L"", L"", 0x7FF612345678ull, 0)) << "low 32 bits only";
    EXPECT_EQ(L"", ThreadStartAddressCell(L"", L"", 0, 0));
}

TEST(ThreadTexts, StartDays) {
    const SYSTEMTIME today = Date(2026, 3, 1, 9);
    EXPECT_EQ(L"Today, 08:05:04", ThreadStartTimeText(Date(2026, 3, 1, 8, 5, 4), today, kDates));
    // The last day of the previous month is not "Yesterday" (intended).
    EXPECT_EQ(L"2/28/2026, 23:59:59", ThreadStartTimeText(Date(2026, 2, 28, 23, 59, 59), today, kDates));
    EXPECT_EQ(L"Yesterday, 10:00:00", ThreadStartTimeText(Date(2026, 3, 14, 10), Date(2026, 3, 15), kDates));
    EXPECT_EQ(L"Unknown", ThreadStartTimeText(Date(1601, 1, 1), today, kDates));
    EXPECT_EQ(L"Unknown", ThreadStartTimeText(Date(0, 0, 0), today, kDates));
}

TEST(ThreadTexts, DurationsShowDaysFromTheDayFieldOnly) {
    EXPECT_EQ(L" 05:00:00", ThreadRuntimeText(Duration(1, 5), 2026, kDays, L"Unknown"));
    EXPECT_EQ(L"1 Day  02:00:00", ThreadRuntimeText(Duration(2, 2), 2026, kDays, L"Unknown")) << "26 hours";
    EXPECT_EQ(L"2 Days  02:00:00", ThreadRuntimeText(Duration(3, 2), 2026, kDays, L"Unknown")) << "50 hours";
    EXPECT_EQ(L"Unknown", ThreadRuntimeText(Duration(3, 2), 1601, kDays, L"Unknown"));
    EXPECT_EQ(L"1 Day  00:00:01.250", ThreadCpuTimeText(Duration(2, 0, 0, 1, 250), kDays));
    // A duration past a month shows only its days within the month (intended).
    SYSTEMTIME long40Days = Duration(10, 0);
    long40Days.wMonth = 2;
    EXPECT_EQ(L"9 Days  00:00:00.000", ThreadCpuTimeText(long40Days, kDays));
}

}  // namespace
}  // namespace lmvx
