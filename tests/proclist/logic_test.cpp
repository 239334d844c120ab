// Pure logic of the process list from given values: cell rules, rates, sort keys, sort commands and header
// clicks, the pair check that decides a re-sort, and the copy of the rows last written to the list.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "command_ids.h"
#include "proclist/cell_format.h"
#include "proclist/column_table.h"
#include "proclist/refresh_rates.h"
#include "proclist/row_shadow.h"
#include "proclist/sort_check.h"
#include "proclist/sort_commands.h"
#include "proclist/sort_order.h"
#include "proclist/text_compare.h"
#include "string_ids.h"

namespace proclist {
namespace {

constexpr wchar_t kStartTimeFormat[] = L"%.2d/%.2d/%.4d %.2d:%.2d:%.2d";

SYSTEMTIME Time(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second) {
    return SYSTEMTIME{year, month, 0, day, hour, minute, second, 0};
}

// The counter cells at the edges of their units, with BlankZero on and off: only zero blanks a cell. (Zero
// and everyday values of each cell are tested on the list view's rows.)
TEST(CounterCells, FormatEachValueWithAndWithoutBlankZero) {
    enum Cell { Cpu, Memory, Io };
    struct Case { Cell cell; unsigned value; bool blankZero; const wchar_t* text; };
    const Case cases[] = {
        {Cpu, 100, false, L"100 %"},       {Memory, 2048, true, L"2 KB"},
        {Memory, 2047, true, L"1 KB"},     {Memory, 1023, true, L"0 KB"},   // truncated
        {Memory, 0xFFFFFFFFu, false, L"4194303 KB"}, {Io, 1, true, L"0.0 KB/s"},
        {Io, 1024, true, L"1.0 KB/s"},     {Io, 1025, true, L"1 KB/s"},
        {Io, 10 * 1024 + 1023, true, L"10 KB/s"}, {Io, 512, false, L"0 KB/s"},
        {Io, 1024, false, L"1 KB/s"},      {Io, 1025, false, L"1 KB/s"},
    };
    for (const Case& c : cases) {
        const std::wstring text = c.cell == Cpu      ? FormatCpuCell(c.value, c.blankZero)
                                  : c.cell == Memory ? FormatMemoryCell(c.value, c.blankZero)
                                                     : FormatIoCell(c.value, c.blankZero);
        EXPECT_EQ(text, c.text) << "cell " << c.cell << " value " << c.value << " blank zero " << c.blankZero;
    }
    EXPECT_EQ(SumIoDeltas(100, 200, 300), 600u);
    EXPECT_EQ(SumIoDeltas(0xFFFFFFFFu, 2, 0), 1u) << "summed as 32-bit unsigned";
}

TEST(OtherCells, StartTimeAndTextCells) {
    const std::tuple<SYSTEMTIME, const wchar_t*, const wchar_t*> times[] = {
        {Time(2024, 3, 7, 9, 5, 2), kStartTimeFormat, L"07/03/2024 09:05:02"},
        {Time(1602, 12, 31, 23, 59, 58), kStartTimeFormat, L"31/12/1602 23:59:58"},
        {Time(2024, 3, 7, 9, 5, 2), L"%d-%d-%d", L"7-3-2024"},
        {Time(1601, 1, 1, 0, 0, 0), kStartTimeFormat, L""},
    };
    for (const auto& [time, format, text] : times) EXPECT_EQ(FormatStartTimeCell(time, format), text) << text;
    EXPECT_EQ(FormatTextCell(std::wstring(kCellBufferLength + 20, L'x')).size(), kCellBufferLength - 1);
}

// (The check marks of the rate menu are tested on the refresh cycle's menu.)
TEST(RefreshRates, ZeroPeriodCountsAsOneHundredAndTheMenuListsTheFiveRatesInOrder) {
    EXPECT_EQ(EffectivePeriod(0), 100u);
    EXPECT_EQ(EffectivePeriod(1), 1u);
    EXPECT_EQ(EffectivePeriod(2000), 2000u);
    const auto items = RateMenuItems(1000);
    const unsigned commands[] = {IDM_RATE_VERY_LOW, IDM_RATE_LOW, IDM_RATE_MEDIUM, IDM_RATE_HIGH, IDM_RATE_VERY_HIGH};
    ASSERT_EQ(items.size(), std::size(commands));
    for (size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].commandId, commands[i]);
        EXPECT_EQ(items[i].stringId, IDS_RATE_VERY_LOW + i);
        EXPECT_FALSE(items[i].separator);
    }
}

int Compare(unsigned mode, bool reverse, const SortKey& a, const SortKey& b) {
    return CompareSortKeys(mode, reverse, a, b, CompareTextDefaultLocale);
}

// Each mode's direction: low compared with high gives lowVsHigh, the other way round its negation, a key with
// itself 0, and the reverse flag turns the result round. Start order shows the higher index first, counters
// the largest first; tree positions, PIDs (as unsigned numbers) and texts ascend.
TEST(SortOrder, EachModeHasItsDirectionAndReverseTurnsItRound) {
    struct Case { unsigned mode; SortKey low, high; int lowVsHigh; };
    std::vector<Case> cases = {{kSortStartOrder, {.itemIndex = 2}, {.itemIndex = 5}, 1},
                               {kSortProcessTree, {.treePosition = 1.5}, {.treePosition = 2.0}, -1},
                               {kSortProcessId, {.pid = 8}, {.pid = 400}, -1},
                               {kSortProcessId, {.pid = 4}, {.pid = 0x80000000u}, -1}};
    for (unsigned mode : {kSortCpuUsage, kSortMemoryUsage, kSortHandleCount, kSortUserObjects, kSortGdiObjects}) {
        cases.push_back({mode, {.counter = 10}, {.counter = 90}, 1});
        cases.push_back({mode, {.counter = 1}, {.counter = 0xFFFFFFFFu}, 1});
    }
    for (unsigned mode : {kSortProcessName, kSortDescription, kSortCompanyName, kSortPathName, kSortUsername}) {
        cases.push_back({mode, {.text = L"alpha.exe"}, {.text = L"beta.exe"}, -1});
    }
    for (const Case& c : cases) {
        SCOPED_TRACE(c.mode);
        EXPECT_EQ(Compare(c.mode, false, c.low, c.high), c.lowVsHigh);
        EXPECT_EQ(Compare(c.mode, false, c.high, c.low), -c.lowVsHigh);
        EXPECT_EQ(Compare(c.mode, false, c.high, c.high), 0);
        EXPECT_EQ(Compare(c.mode, true, c.low, c.high), -c.lowVsHigh);
        EXPECT_EQ(Compare(c.mode, true, c.high, c.low), c.lowVsHigh);
    }
}

// Names differing only in case differ; a text mode looks at nothing but the text, and a failed comparison
// is equal; unknown modes compare everything as equal.
TEST(SortOrder, TextModesAndUnknownModes) {
    const int upperFirst = Compare(kSortProcessName, false, {.text = L"Notepad.exe"}, {.text = L"notepad.exe"});
    EXPECT_NE(upperFirst, 0);
    EXPECT_EQ(Compare(kSortProcessName, false, {.text = L"notepad.exe"}, {.text = L"Notepad.exe"}), -upperFirst);
    EXPECT_EQ(Compare(kSortUsername, false, {.pid = 3, .counter = 1, .text = L"same"}, {.pid = 4, .counter = 2, .text = L"same"}), 0);
    EXPECT_EQ(CompareSortKeys(kSortPathName, true, {.text = L"a"}, {.text = L"b"},
                              [](const std::wstring&, const std::wstring&) { return 0; }), 0);
    const SortKey a{1, 1, 1, 1, L"a"};
    const SortKey b{9, 9, 9, 9, L"b"};
    for (unsigned mode : {13u, 14u, 100u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(Compare(mode, false, a, b), 0);
        EXPECT_EQ(Compare(mode, true, b, a), 0);
    }
}

// Each command selects its mode (the commands in menu order select modes 0 to 12); a mode command keeps the
// reverse flag, the reverse command flips it and keeps any mode; others are no sort.
TEST(SortCommands, ModeAndReverseCommandsChangeOnlyTheirPart) {
    const unsigned commands[] = {IDM_SORT_START_ORDER,  IDM_SORT_PROCESS_TREE, IDM_SORT_PROCESS_NAME, IDM_SORT_CPU_USAGE,
                                 IDM_SORT_MEMORY_USAGE, IDM_SORT_DESCRIPTION,  IDM_SORT_COMPANY_NAME, IDM_SORT_PATH_NAME,
                                 IDM_SORT_PROCESS_ID,   IDM_SORT_USERNAME,     IDM_SORT_HANDLE_COUNT, IDM_SORT_USER_OBJECTS,
                                 IDM_SORT_GDI_OBJECTS};
    for (unsigned mode = 0; mode < std::size(commands); ++mode) EXPECT_EQ(SortModeOfCommand(commands[mode]), mode);
    EXPECT_FALSE(SortModeOfCommand(IDM_SORT_REVERSE).has_value());
    EXPECT_FALSE(SortModeOfCommand(IDM_RATE_LOW).has_value());
    const struct { SortState before; unsigned command; std::optional<SortState> after; } cases[] = {
        {{kSortCpuUsage, true}, IDM_SORT_PROCESS_ID, SortState{kSortProcessId, true}},
        {{kSortCpuUsage, false}, IDM_SORT_PROCESS_ID, SortState{kSortProcessId, false}},
        {{kSortUsername, false}, IDM_SORT_REVERSE, SortState{kSortUsername, true}},
        {{kSortUsername, true}, IDM_SORT_REVERSE, SortState{kSortUsername, false}},
        {{40, false}, IDM_SORT_REVERSE, SortState{40, true}},
        {{kSortCpuUsage, false}, IDM_RATE_HIGH, std::nullopt},
        {{kSortCpuUsage, false}, IDM_EXIT, std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(ApplySortCommand(c.before, c.command), c.after) << c.command;
}

// The Process header goes from tree to name to reversed name and back to tree, and from any other state to
// tree; the header of each other column selects the mode of the column to its right from "I/O" on; the GDI
// header and columns outside the table change nothing.
TEST(HeaderClick, ProcessHeaderCyclesOthersSelectTheShiftedModeGdiAndStrangersDoNothing) {
    const std::pair<SortState, SortState> process[] = {
        {{kSortProcessTree, false}, {kSortProcessName, false}}, {{kSortProcessName, false}, {kSortProcessName, true}},
        {{kSortProcessName, true}, {kSortProcessTree, false}},  {{kSortProcessTree, true}, {kSortProcessTree, false}},
        {{kSortCpuUsage, true}, {kSortProcessTree, false}},     {{kSortCpuUsage, false}, {kSortProcessTree, false}},
    };
    for (const auto& [before, after] : process) EXPECT_EQ(ApplyHeaderClick(before, kColumnProcess), after);
    const std::pair<int, unsigned> shifted[] = {
        {kColumnCpuUsage, kSortCpuUsage},        {kColumnIo, kSortMemoryUsage},
        {kColumnMemoryUsage, kSortDescription},  {kColumnDescription, kSortCompanyName},
        {kColumnCompanyName, kSortPathName},     {kColumnPathName, kSortProcessId},
        {kColumnProcessId, kSortStartOrder},     {kColumnStartTime, kSortUsername},
        {kColumnUsername, kSortHandleCount},     {kColumnHandles, kSortUserObjects},
        {kColumnUserObjects, kSortGdiObjects},
    };
    for (const auto& [column, mode] : shifted) {
        SCOPED_TRACE(column);
        EXPECT_EQ(ApplyHeaderClick({kSortProcessTree, false}, column), (SortState{mode, false}));
        EXPECT_EQ(ApplyHeaderClick({kSortProcessTree, true}, column), (SortState{mode, true}));
        EXPECT_EQ(ApplyHeaderClick({mode, false}, column), (SortState{mode, true}));
        EXPECT_EQ(ApplyHeaderClick({mode, true}, column), (SortState{mode, false}));
    }
    for (int column : {static_cast<int>(kColumnGdiObjects), -1, static_cast<int>(kColumnCount)}) {
        for (SortState state : {SortState{kSortGdiObjects, false}, SortState{kSortCpuUsage, true}}) {
            EXPECT_EQ(ApplyHeaderClick(state, column), state) << column;
        }
    }
}

// Thirteen modes (strings 157 to 169 in order), a separator and Reverse; the item of the current mode is the
// only mode item checked (none for a mode outside the table); the reverse item follows the flag.
TEST(SortMenu, ItemsAndTheirCheckMarks) {
    for (unsigned mode = 0; mode <= kSortModeCount; ++mode) {
        for (bool reverse : {false, true}) {
            SCOPED_TRACE(mode);
            const auto items = SortMenuItems({mode, reverse});
            ASSERT_EQ(items.size(), 15u);
            for (size_t i = 0; i < 13; ++i) {
                EXPECT_FALSE(items[i].separator);
                EXPECT_EQ(items[i].stringId, IDS_SORT_PROCESS_TREE + i);
                EXPECT_EQ(items[i].checked, SortModeOfCommand(items[i].commandId) == mode) << i;
            }
            EXPECT_TRUE(items[13].separator);
            EXPECT_EQ(items[14].commandId, static_cast<unsigned>(IDM_SORT_REVERSE));
            EXPECT_EQ(items[14].stringId, static_cast<unsigned>(IDS_SORT_REVERSE));
            EXPECT_EQ(items[14].checked, reverse);
        }
    }
}

// Rows hold numbers that belong in ascending order. The check looks at neighbouring pairs from the top, stops
// at the first misplaced one, and never looks at the last pair (so one or two rows are never checked).
TEST(SortCheck, FindsTheFirstMisplacedPairAndNeverLooksAtTheLast) {
    const struct { std::vector<int> values; int misplaced; size_t compared; } cases[] = {
        {{}, -1, 0},         {{5}, -1, 0},        {{9, 1}, -1, 0},           {{1, 2, 3, 0}, -1, 2},
        {{2, 1, 3}, 0, 1},   {{1, 3, 2}, -1, 1},  {{1, 3, 2, 0, 5, 6}, 1, 2}, {{4, 4, 4, 4}, -1, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.values));
        std::vector<std::pair<int, int>> compared;
        EXPECT_EQ(FindMisplacedPair(static_cast<int>(c.values.size()), [&](int a, int b) {
            compared.emplace_back(a, b);
            return c.values[a] > c.values[b] ? 1 : (c.values[a] < c.values[b] ? -1 : 0);
        }), c.misplaced);
        ASSERT_EQ(compared.size(), c.compared);
        for (int i = 0; i < static_cast<int>(compared.size()); ++i) EXPECT_EQ(compared[i], std::make_pair(i, i + 1));
    }
}

std::vector<unsigned> Pids(const RowShadow& shadow) {
    std::vector<unsigned> pids;
    for (int row = 0; row < shadow.Count(); ++row) pids.push_back(shadow.PidAt(row));
    return pids;
}

// Rows 1, 2, 3 inserted at the top in turn (so shown 3, 2, 1), each with its PID as first cell and image.
RowShadow ThreeRows() {
    RowShadow shadow;
    for (unsigned pid : {1u, 2u, 3u}) shadow.Insert(0, pid, static_cast<int>(pid), std::to_wstring(pid));
    return shadow;
}

// Whether a row of ThreeRows still holds its own first cell and image.
bool KeepsItsCells(const RowShadow& shadow, int row) {
    const unsigned pid = shadow.PidAt(row);
    return !shadow.IsCellDifferent(row, 0, std::to_wstring(pid)) &&
           !shadow.IsImageDifferent(row, static_cast<int>(pid));
}

// An inserted row knows its first cell, empty other cells, no indent and its image, and pushes the others
// down; a recorded cell, indent or image matches only itself until it is forgotten.
TEST(RowShadow, InsertRecordAndForget) {
    RowShadow shadow = ThreeRows();
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{3, 2, 1}));
    EXPECT_EQ(shadow.FindRow(1), 2);
    EXPECT_EQ(shadow.FindRow(7), -1);
    EXPECT_TRUE(KeepsItsCells(shadow, 2));
    EXPECT_TRUE(shadow.IsCellDifferent(2, 0, L"2"));
    EXPECT_TRUE(shadow.IsImageDifferent(2, 2));
    for (int column = 1; column < kColumnCount; ++column) {
        EXPECT_FALSE(shadow.IsCellDifferent(0, column, L""));
        EXPECT_TRUE(shadow.IsCellDifferent(0, column, L"0"));
    }
    EXPECT_FALSE(shadow.IsIndentDifferent(0, 0));
    EXPECT_TRUE(shadow.IsIndentDifferent(0, 1));
    shadow.Insert(9, 4, 0, L"");
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{3, 2, 1, 4})) << "beyond the end appends";

    shadow.RecordCell(0, 3, L"1,024 K");
    EXPECT_FALSE(shadow.IsCellDifferent(0, 3, L"1,024 K"));
    EXPECT_TRUE(shadow.IsCellDifferent(0, 3, L"1,028 K"));
    shadow.ForgetCell(0, 3);
    EXPECT_TRUE(shadow.IsCellDifferent(0, 3, L"1,024 K"));
    EXPECT_TRUE(shadow.IsCellDifferent(0, 3, L""));
    shadow.RecordIndent(0, 2);
    EXPECT_FALSE(shadow.IsIndentDifferent(0, 2));
    shadow.RecordImage(0, 7);
    EXPECT_FALSE(shadow.IsImageDifferent(0, 7));
    EXPECT_TRUE(shadow.IsImageDifferent(0, 3));
}

TEST(RowShadow, EraseResetPermuteAndReorder) {
    RowShadow shadow = ThreeRows();
    for (int row : {1, -1, 2}) shadow.Erase(row);   // the last two are no rows any more and are ignored
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{3, 1}));
    EXPECT_TRUE(KeepsItsCells(shadow, 1));
    shadow.RecordIndent(1, 1);
    shadow.ResetToPids({4, 5});   // knows the PIDs but no cell, indent or image
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{4, 5}));
    EXPECT_TRUE(shadow.IsCellDifferent(1, 0, L"1"));
    EXPECT_TRUE(shadow.IsIndentDifferent(1, 1));
    EXPECT_TRUE(shadow.IsImageDifferent(1, 1));

    // Permuting and reordering carry each row's cells; a permutation of another length changes nothing.
    shadow = ThreeRows();
    shadow.Permute({2, 0, 1});
    shadow.Permute({0});
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{1, 3, 2}));
    for (int row = 0; row < 3; ++row) EXPECT_TRUE(KeepsItsCells(shadow, row)) << row;
    shadow.Reorder({2, 1, 3});
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{2, 1, 3}));
    for (int row = 0; row < 3; ++row) EXPECT_TRUE(KeepsItsCells(shadow, row)) << row;
    // Unknown, missing or repeated PIDs: the copy starts again from the given PIDs.
    for (std::vector<unsigned> order : {std::vector<unsigned>{1, 2, 8}, {1, 2}, {1, 1, 2}, {1, 2, 3, 4}}) {
        RowShadow other = ThreeRows();
        other.Reorder(order);
        EXPECT_EQ(Pids(other), order);
        EXPECT_TRUE(other.IsCellDifferent(0, 0, L"1"));
    }
}

// A stable sort's row positions; unique tells whether no two neighbours compare equal.
TEST(SortedRowOrder, GivesTheStableOrderAndWhetherItIsTheOnlyOne) {
    const struct { std::vector<int> keys, order; bool unique; } cases[] = {
        {{30, 10, 20}, {1, 2, 0}, true}, {{5, 1, 5, 0}, {3, 1, 0, 2}, false}, {{}, {}, true}, {{4}, {0}, true}};
    for (const auto& c : cases) {
        bool unique = !c.unique;
        EXPECT_EQ(SortedRowOrder(c.keys, [](int a, int b) { return a < b ? -1 : (a > b ? 1 : 0); }, &unique), c.order);
        EXPECT_EQ(unique, c.unique) << c.keys.size();
    }
}

}  // namespace
}  // namespace proclist
