#include "mainwnd/window_placement.h"

#include "app/option_keys.h"
#include "wren.h"

namespace lmvx {

UINT RestoredShowCommand(UINT storedShowCommand) {
    return storedShowCommand == SW_SHOWMAXIMIZED ? SW_SHOWMAXIMIZED : SW_SHOW;
}

void RestoreMainWindowPlacement(HWND window) {
    static_assert(sizeof(WINDOWPLACEMENT) == 44, "the stored placement record is 44 bytes");
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    unsigned bytesRead = 0;
    wren::regOptions.GetOptionBINARY(options::MainWndPlacement.name, &placement, sizeof placement, &bytesRead);
    if (bytesRead == options::MainWndPlacement.requiredSize) {
        placement.length = sizeof placement;
        placement.showCmd = RestoredShowCommand(placement.showCmd);
        SetWindowPlacement(window, &placement);
    } else {
        SetWindowPos(window, nullptr, 0, 0, kDefaultMainWindowWidth, kDefaultMainWindowHeight,
                     SWP_NOMOVE | SWP_NOZORDER);
    }
}

void SaveMainWindowPlacement(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (GetWindowPlacement(window, &placement)) {
        wren::regOptions.SetOptionBINARY(options::MainWndPlacement.name, &placement, sizeof placement);
    }
}

}  // namespace lmvx
