// Sort commands, header clicks and the check marks of the sort submenu.
#include <gtest/gtest.h>

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

TEST(SortCommands, ModeCommandKeepsTheReverseFlag) {
    EXPECT_EQ(ApplySortCommand({kSortCpuUsage, true}, IDM_SORT_PROCESS_ID), (SortState{kSortProcessId, true}));
    EXPECT_EQ(ApplySortCommand({kSortCpuUsage, false}, IDM_SORT_PROCESS_ID), (SortState{kSortProcessId, false}));
}

TEST(SortCommands, ReverseTogglesAndKeepsTheMode) {
    EXPECT_EQ(ApplySortCommand({kSortUsername, false}, IDM_SORT_REVERSE), (SortState{kSortUsername, true}));
    EXPECT_EQ(ApplySortCommand({kSortUsername, true}, IDM_SORT_REVERSE), (SortState{kSortUsername, false}));
    EXPECT_EQ(ApplySortCommand({40, false}, IDM_SORT_REVERSE), (SortState{40, true}));
}

TEST(SortCommands, OtherCommandsAreNotSortCommands) {
    EXPECT_FALSE(ApplySortCommand({kSortCpuUsage, false}, IDM_RATE_HIGH).has_value());
    EXPECT_FALSE(ApplySortCommand({kSortCpuUsage, false}, IDM_EXIT).has_value());
}

TEST(HeaderClick, ProcessHeaderCyclesTreeNameReversedName) {
    SortState state{kSortProcessTree, false};
    state = ApplyHeaderClick(state, kColumnProcess);
    EXPECT_EQ(state, (SortState{kSortProcessName, false}));
    state = ApplyHeaderClick(state, kColumnProcess);
    EXPECT_EQ(state, (SortState{kSortProcessName, true}));
    state = ApplyHeaderClick(state, kColumnProcess);
    EXPECT_EQ(state, (SortState{kSortProcessTree, false}));
}

TEST(HeaderClick, ProcessHeaderFromAnyOtherStateGoesToTree) {
    EXPECT_EQ(ApplyHeaderClick({kSortProcessTree, true}, kColumnProcess), (SortState{kSortProcessTree, false}));
    EXPECT_EQ(ApplyHeaderClick({kSortCpuUsage, true}, kColumnProcess), (SortState{kSortProcessTree, false}));
    EXPECT_EQ(ApplyHeaderClick({kSortCpuUsage, false}, kColumnProcess), (SortState{kSortProcessTree, false}));
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

TEST(HeaderClick, GdiHeaderIsInert) {
    EXPECT_EQ(ApplyHeaderClick({kSortGdiObjects, false}, kColumnGdiObjects), (SortState{kSortGdiObjects, false}));
    EXPECT_EQ(ApplyHeaderClick({kSortCpuUsage, true}, kColumnGdiObjects), (SortState{kSortCpuUsage, true}));
}

TEST(HeaderClick, ColumnsOutsideTheTableChangeNothing) {
    EXPECT_EQ(ApplyHeaderClick({kSortCpuUsage, true}, -1), (SortState{kSortCpuUsage, true}));
    EXPECT_EQ(ApplyHeaderClick({kSortCpuUsage, true}, kColumnCount), (SortState{kSortCpuUsage, true}));
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

TEST(SortMenu, ChecksTheItemOfTheCurrentModeOnly) {
    for (unsigned mode = 0; mode < kSortModeCount; ++mode) {
        SCOPED_TRACE(mode);
        const auto items = SortMenuItems({mode, false});
        int checked = 0;
        for (const MenuItemSpec& item : items) {
            if (!item.checked) continue;
            ++checked;
            EXPECT_EQ(SortModeOfCommand(item.commandId), mode);
        }
        EXPECT_EQ(checked, 1);
    }
}

TEST(SortMenu, ReverseItemFollowsTheFlag) {
    EXPECT_FALSE(SortMenuItems({kSortCpuUsage, false}).back().checked);
    EXPECT_TRUE(SortMenuItems({kSortCpuUsage, true}).back().checked);
}

TEST(SortMenu, UnknownModeChecksNoModeItem) {
    for (const MenuItemSpec& item : SortMenuItems({13, false})) EXPECT_FALSE(item.checked);
}

}  // namespace
}  // namespace proclist
