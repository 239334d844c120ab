// Sort commands, header clicks and the check marks of the sort submenu.
#include <gtest/gtest.h>

#include <optional>

#include "command_ids.h"
#include "proclist/column_table.h"
#include "proclist/sort_commands.h"
#include "proclist/sort_order.h"
#include "string_ids.h"

namespace proclist {
namespace {

TEST(SortCommands, EachCommandSelectsItsMode) {
    const std::pair<unsigned, unsigned> table[] = {
        {IDM_SORT_START_ORDER, 0},   {IDM_SORT_PROCESS_TREE, 1}, {IDM_SORT_PROCESS_NAME, 2},
        {IDM_SORT_CPU_USAGE, 3},     {IDM_SORT_MEMORY_USAGE, 4}, {IDM_SORT_DESCRIPTION, 5},
        {IDM_SORT_COMPANY_NAME, 6},  {IDM_SORT_PATH_NAME, 7},    {IDM_SORT_PROCESS_ID, 8},
        {IDM_SORT_USERNAME, 9},      {IDM_SORT_HANDLE_COUNT, 10}, {IDM_SORT_USER_OBJECTS, 11},
        {IDM_SORT_GDI_OBJECTS, 12},
    };
    for (const auto& [command, mode] : table) {
        EXPECT_EQ(SortModeOfCommand(command), mode) << command;
    }
    EXPECT_FALSE(SortModeOfCommand(IDM_SORT_REVERSE).has_value());
    EXPECT_FALSE(SortModeOfCommand(IDM_RATE_LOW).has_value());
}

// A mode command keeps the reverse flag, the reverse command flips it and keeps any mode; others are no sort.
TEST(SortCommands, ModeAndReverseCommandsChangeOnlyTheirPart) {
    const struct {
        SortState before;
        unsigned command;
        std::optional<SortState> after;
    } cases[] = {
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

// The Process header goes from tree to name to reversed name and back to tree; from any other state to tree.
TEST(HeaderClick, ProcessHeaderCyclesTreeNameReversedName) {
    const std::pair<SortState, SortState> cases[] = {
        {{kSortProcessTree, false}, {kSortProcessName, false}}, {{kSortProcessName, false}, {kSortProcessName, true}},
        {{kSortProcessName, true}, {kSortProcessTree, false}},  {{kSortProcessTree, true}, {kSortProcessTree, false}},
        {{kSortCpuUsage, true}, {kSortProcessTree, false}},     {{kSortCpuUsage, false}, {kSortProcessTree, false}},
    };
    for (const auto& [before, after] : cases) EXPECT_EQ(ApplyHeaderClick(before, kColumnProcess), after);
}

// The header of each column selects the mode of the column to its right from "I/O" on.
TEST(HeaderClick, ShiftedMappingOfColumnsOneToEleven) {
    const std::pair<int, unsigned> table[] = {
        {kColumnCpuUsage, kSortCpuUsage},        {kColumnIo, kSortMemoryUsage},
        {kColumnMemoryUsage, kSortDescription},  {kColumnDescription, kSortCompanyName},
        {kColumnCompanyName, kSortPathName},     {kColumnPathName, kSortProcessId},
        {kColumnProcessId, kSortStartOrder},     {kColumnStartTime, kSortUsername},
        {kColumnUsername, kSortHandleCount},     {kColumnHandles, kSortUserObjects},
        {kColumnUserObjects, kSortGdiObjects},
    };
    for (const auto& [column, mode] : table) {
        SCOPED_TRACE(column);
        const unsigned other = mode == kSortProcessTree ? kSortCpuUsage : kSortProcessTree;
        EXPECT_EQ(ApplyHeaderClick({other, false}, column), (SortState{mode, false}));
        EXPECT_EQ(ApplyHeaderClick({other, true}, column), (SortState{mode, true}));
        EXPECT_EQ(ApplyHeaderClick({mode, false}, column), (SortState{mode, true}));
        EXPECT_EQ(ApplyHeaderClick({mode, true}, column), (SortState{mode, false}));
    }
}

// The GDI header and columns outside the table change nothing.
TEST(HeaderClick, GdiHeaderAndColumnsOutsideTheTableChangeNothing) {
    for (int column : {static_cast<int>(kColumnGdiObjects), -1, static_cast<int>(kColumnCount)}) {
        for (SortState state : {SortState{kSortGdiObjects, false}, SortState{kSortCpuUsage, true}}) {
            EXPECT_EQ(ApplyHeaderClick(state, column), state) << column;
        }
    }
}

TEST(SortMenu, HasThirteenModesSeparatorAndReverse) {
    const auto items = SortMenuItems({kSortProcessTree, false});
    ASSERT_EQ(items.size(), 15u);
    for (size_t i = 0; i < 13; ++i) {
        EXPECT_FALSE(items[i].separator);
        EXPECT_EQ(items[i].stringId, IDS_SORT_PROCESS_TREE + i) << "texts are strings 157 to 169 in order";
    }
    EXPECT_TRUE(items[13].separator);
    EXPECT_EQ(items[14].commandId, static_cast<unsigned>(IDM_SORT_REVERSE));
    EXPECT_EQ(items[14].stringId, static_cast<unsigned>(IDS_SORT_REVERSE));
}

// The item of the current mode is the only mode item checked (none for a mode outside the table); the
// reverse item follows the flag.
TEST(SortMenu, ChecksTheItemOfTheCurrentModeOnlyAndReverseByTheFlag) {
    for (unsigned mode = 0; mode <= kSortModeCount; ++mode) {
        for (bool reverse : {false, true}) {
            SCOPED_TRACE(mode);
            const auto items = SortMenuItems({mode, reverse});
            int checked = 0;
            for (size_t i = 0; i + 1 < items.size(); ++i) {
                if (!items[i].checked) continue;
                ++checked;
                EXPECT_EQ(SortModeOfCommand(items[i].commandId), mode);
            }
            EXPECT_EQ(checked, mode < kSortModeCount ? 1 : 0);
            EXPECT_EQ(items.back().checked, reverse);
        }
    }
}

}  // namespace
}  // namespace proclist
