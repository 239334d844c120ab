// Makes a popup menu out of menu entries: texts from the language module, states, check marks, default item.
#pragma once
#include <windows.h>

#include <vector>

#include "common/unique_resource.h"
#include "mainwnd/process_menu_entry.h"

namespace lmvx {

// The entry marked as submenu receives submenu (the new menu then owns it); when submenu is empty, that
// entry becomes an empty popup, shown grayed as the entry says. Null when the menu cannot be made.
UniqueMenu CreatePopupFromEntries(const std::vector<MenuEntry>& entries, UniqueMenu submenu = UniqueMenu());

}  // namespace lmvx
