// The five refresh rates of View > Refresh Rate and the rule for a stored period of 0. Values only.
#pragma once
#include <optional>
#include <vector>

#include "menu_items.h"

namespace proclist {

constexpr unsigned kDefaultRefreshPeriod = 1000;  // UpdateInterval when nothing is stored
constexpr unsigned kZeroPeriodReplacement = 100;

// The period that timers, waits, the menu check and the saved option use: 0 counts as 100 ms.
unsigned EffectivePeriod(unsigned periodMs);
// The period a Refresh Rate command selects; nullopt for other commands.
std::optional<unsigned> PeriodOfRateCommand(unsigned commandId);
// The Refresh Rate submenu: five items, the one whose period equals the effective period checked
// (none for a period outside the table, such as 2000).
std::vector<MenuItemSpec> RateMenuItems(unsigned periodMs);

}  // namespace proclist
