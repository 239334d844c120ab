// Where a performance pop-up goes on the screen: values in, values out.
#pragma once
#include <windows.h>

namespace lmvx::perf {

struct PopupPlacementInput {
    SIZE window;      // the pop-up's outer size
    RECT desktop;     // the desktop's rectangle
    bool glassFrame;  // Vista and later: the glass frame needs more distance
};

// Next to a status-bar pane (screen rectangle): below it, or above it when it would pass the desktop's
// bottom; then moved back onto the desktop.
POINT PopupPositionAnchored(const RECT& anchor, const PopupPlacementInput& input);

// Bottom-right corner of the desktop above the taskbar. Only the taskbar's height counts, wherever it is.
POINT PopupPositionAtTaskbar(int taskbarHeight, const PopupPlacementInput& input);

// An all-zero anchor means "open at the taskbar".
bool IsEmptyAnchor(const RECT& anchor);

}  // namespace lmvx::perf
