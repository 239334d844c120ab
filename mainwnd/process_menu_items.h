// What the process menu and its priority submenu hold for a process, decided from plain facts about it.
#pragma once
#include <vector>

#include "mainwnd/process_menu_entry.h"

namespace lmvx {

struct ProcessMenuFacts {
    bool inSnapshot = false;      // false: the PID is no longer (or not yet) in the provider's snapshot
    bool suspended = false;
    bool ownProcess = false;      // the process is Lumivex itself
    int windowCount = 0;          // visible, titled top-level windows
    bool hasCommandLine = false;
    bool priorityMenuBuilt = false;
};

// The process menu: the context menu of the list and the main menu's Process popup.
std::vector<MenuEntry> ProcessMenuEntries(const ProcessMenuFacts& facts);

// The priority submenu: six classes, the one in effect checked, then "Paused".
std::vector<MenuEntry> PriorityMenuEntries(unsigned priorityClass, bool suspended, bool ownProcess);

}  // namespace lmvx
