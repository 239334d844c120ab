#include "sort_commands.h"

#include <array>

#include "command_ids.h"
#include "sort_order.h"
#include "string_ids.h"

namespace proclist {
namespace {

struct SortCommand {
    unsigned commandId;
    unsigned stringId;
    unsigned mode;
};

// In submenu order.
constexpr std::array<SortCommand, kSortModeCount> kSortCommands = {{
    {IDM_SORT_PROCESS_TREE, IDS_SORT_PROCESS_TREE, kSortProcessTree},
    {IDM_SORT_START_ORDER, IDS_SORT_START_ORDER, kSortStartOrder},
    {IDM_SORT_PROCESS_NAME, IDS_SORT_PROCESS_NAME, kSortProcessName},
    {IDM_SORT_PROCESS_ID, IDS_SORT_PROCESS_ID, kSortProcessId},
    {IDM_SORT_CPU_USAGE, IDS_SORT_CPU_USAGE, kSortCpuUsage},
    {IDM_SORT_MEMORY_USAGE, IDS_SORT_MEMORY_USAGE, kSortMemoryUsage},
    {IDM_SORT_DESCRIPTION, IDS_SORT_DESCRIPTION, kSortDescription},
    {IDM_SORT_COMPANY_NAME, IDS_SORT_COMPANY_NAME, kSortCompanyName},
    {IDM_SORT_PATH_NAME, IDS_SORT_PATH_NAME, kSortPathName},
    {IDM_SORT_USERNAME, IDS_SORT_USERNAME, kSortUsername},
    {IDM_SORT_HANDLE_COUNT, IDS_SORT_HANDLE_COUNT, kSortHandleCount},
    {IDM_SORT_USER_OBJECTS, IDS_SORT_USER_OBJECTS, kSortUserObjects},
    {IDM_SORT_GDI_OBJECTS, IDS_SORT_GDI_OBJECTS, kSortGdiObjects},
}};

// The mode each header selects, by column data index. Intended: from "I/O" on, each header sorts by the
// key of the column to its right, "Process ID" selects the start order, and "GDI Objects" does nothing.
constexpr std::array<int, 13> kHeaderModes = {
    -1,  // "Process": cycles between tree and name, see ApplyHeaderClick
    kSortCpuUsage,
    kSortMemoryUsage,
    kSortDescription,
    kSortCompanyName,
    kSortPathName,
    kSortProcessId,
    kSortStartOrder,
    kSortUsername,
    kSortHandleCount,
    kSortUserObjects,
    kSortGdiObjects,
    -1,  // "GDI Objects": no effect
};

}  // namespace

std::optional<unsigned> SortModeOfCommand(unsigned commandId) {
    for (const SortCommand& command : kSortCommands) {
        if (command.commandId == commandId) return command.mode;
    }
    return std::nullopt;
}

std::optional<SortState> ApplySortCommand(SortState current, unsigned commandId) {
    if (commandId == IDM_SORT_REVERSE) return SortState{current.mode, !current.reverse};
    if (const auto mode = SortModeOfCommand(commandId)) return SortState{*mode, current.reverse};
    return std::nullopt;
}

SortState ApplyHeaderClick(SortState current, int column) {
    if (column == 0) {
        if (current.mode == kSortProcessTree && !current.reverse) return {kSortProcessName, false};
        if (current.mode == kSortProcessName && !current.reverse) return {kSortProcessName, true};
        return {kSortProcessTree, false};
    }
    if (column < 0 || column >= static_cast<int>(kHeaderModes.size()) || kHeaderModes[column] < 0) return current;
    const unsigned mode = static_cast<unsigned>(kHeaderModes[column]);
    if (mode == current.mode) return {mode, !current.reverse};
    return {mode, current.reverse};
}

std::vector<MenuItemSpec> SortMenuItems(SortState current) {
    std::vector<MenuItemSpec> items;
    for (const SortCommand& command : kSortCommands) {
        items.push_back({command.commandId, command.stringId, command.mode == current.mode, false});
    }
    items.push_back({0, 0, false, true});
    items.push_back({IDM_SORT_REVERSE, IDS_SORT_REVERSE, current.reverse, false});
    return items;
}

}  // namespace proclist
