// The notification-area icon's menu. The tray icon calls ShowTrayMenu on a right click and sends the
// returned command to the main window.
#pragma once
#include <windows.h>

#include <functional>

namespace lmvx {

// The CPU pop-up that hovers over the tray icon: hidden while the menu is open unless it is pinned (it then
// carries WS_SYSMENU), and told that a menu is open so that it does not show itself under the menu.
struct TrayMenuPopup {
    HWND window = nullptr;
    std::function<void(bool menuOpen)> setMenuOpen;
};

// Shows the menu at the cursor, owned by mainWindow; returns the chosen command, 0 when none.
unsigned ShowTrayMenu(HWND mainWindow, const TrayMenuPopup& popup);

}  // namespace lmvx
