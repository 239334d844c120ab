// The main window's flat toolbar: icon buttons whose texts show only as tooltips. Each button sends a
// command the main window already handles for its menus; the toolbar has no logic of its own.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include "common/unique_resource.h"

namespace lmvx {

// Control id of the toolbar window, so the main window's layout finds it with GetDlgItem.
inline constexpr int kToolbarControlId = 111;


struct Toolbar {
    HWND window = nullptr;     // child of the main window, destroyed with it
    UniqueImageList images;    // outlives the window: the main window's state owns both
};

// Creates the toolbar on the parent's top edge with its eighteen buttons and shows it.
// The icons come from the shared icon set, which must be loaded before. False when the window fails.
bool ToolbarCreate(Toolbar& toolbar, HWND parent);

// Height of the toolbar window, 0 when there is none or it is hidden.
int ToolbarHeight(const Toolbar& toolbar);

}  // namespace lmvx
