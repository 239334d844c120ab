// What the notification-area icon's menu holds, decided from the main window's state and the options.
#pragma once
#include <vector>

#include "mainwnd/process_menu_entry.h"

namespace lmvx {

struct TrayMenuFacts {
    bool mainWindowVisible = false;
    bool showPerformanceGraph = false;   // option ShowTrayPerfWnd
    bool topmost = false;                // the main window has WS_EX_TOPMOST
};

std::vector<MenuEntry> TrayMenuEntries(const TrayMenuFacts& facts);

}  // namespace lmvx
