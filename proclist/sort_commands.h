// How the user picks the sort order: the View > Sort Process List commands, the header clicks of the
// process list, and the check marks of the rebuilt sort submenu. Values in, values out.
#pragma once
#include <optional>
#include <vector>

#include "menu_items.h"

namespace proclist {

struct SortState {
    unsigned mode = 0;
    bool reverse = false;
    bool operator==(const SortState&) const = default;
};

// The mode a sort command selects; nullopt for the reverse command and for other commands.
std::optional<unsigned> SortModeOfCommand(unsigned commandId);
// The state after a sort or reverse command; nullopt when the command is none of them.
// A mode command keeps the reverse flag as it was.
std::optional<SortState> ApplySortCommand(SortState current, unsigned commandId);
// The state after a click on the header of the given column (data index, not display position).
SortState ApplyHeaderClick(SortState current, int column);

// The sort submenu: thirteen mode items, a separator, and the reverse item.
std::vector<MenuItemSpec> SortMenuItems(SortState current);

}  // namespace proclist
