#include "mainwnd/tray_menu.h"

#include "app/option_keys.h"
#include "mainwnd/process_menu_popup.h"
#include "mainwnd/tray_menu_items.h"
#include "wren.h"

namespace lmvx {
namespace {

TrayMenuFacts CurrentTrayMenuFacts(HWND mainWindow) {
    TrayMenuFacts facts;
    facts.mainWindowVisible = IsWindowVisible(mainWindow) != FALSE;
    const auto& graph = options::ShowTrayPerfWnd;
    facts.showPerformanceGraph = wren::regOptions.GetOptionBOOL(graph.name, graph.defaultValue) != 0;
    facts.topmost = (GetWindowLongPtrW(mainWindow, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    return facts;
}

}  // namespace

unsigned ShowTrayMenu(HWND mainWindow, const TrayMenuPopup& popup) {
    UniqueMenu menu = CreatePopupFromEntries(TrayMenuEntries(CurrentTrayMenuFacts(mainWindow)));
    if (!menu) return 0;
    POINT cursor{};
    GetCursorPos(&cursor);
    const bool pinned = popup.window && (GetWindowLongPtrW(popup.window, GWL_STYLE) & WS_SYSMENU) != 0;
    if (popup.window && !pinned) ShowWindow(popup.window, SW_HIDE);
    if (popup.setMenuOpen) popup.setMenuOpen(true);
    // Without this the menu stays open when the user clicks elsewhere (a known rule of notification menus).
    SetForegroundWindow(mainWindow);
    const UINT command = static_cast<UINT>(
        TrackPopupMenu(menu.Get(), TPM_RETURNCMD, cursor.x, cursor.y, 0, mainWindow, nullptr));
    if (popup.setMenuOpen) popup.setMenuOpen(false);
    return command;
}

}  // namespace lmvx
