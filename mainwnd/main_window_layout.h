// Where the main window's children go: pure arithmetic, then one function that moves the children.
//
// The window holds, from top to bottom: the toolbar, then the details pane (left) beside the process list
// (right), then the status bar. Bars keep their own heights, the pane keeps its preferred width as long as
// the list keeps at least kMinimumListWidth, and the list takes all the space that is left.
#pragma once
#include <windows.h>

namespace lmvx {

inline constexpr int kMinimumListWidth = 200;

struct MainWindowLayoutInput {
    int clientWidth = 0;
    int clientHeight = 0;
    int toolbarHeight = 0;
    int statusBarHeight = 0;
    int detailsPaneWidth = 0;   // preferred width; 0 when there is no pane
};

struct MainWindowLayout {
    RECT toolbar{};
    RECT detailsPane{};
    RECT list{};
    RECT statusBar{};
};

// Lays out a client area. No rectangle has a negative size and no two of them overlap.
MainWindowLayout ComputeMainWindowLayout(const MainWindowLayoutInput& input);
// The same without a details pane.
MainWindowLayout ComputeMainWindowLayout(int clientWidth, int clientHeight, int toolbarHeight, int statusBarHeight);

// The children that other parts of the main window plug in; any may be null.
struct MainWindowChildren {
    HWND toolbar = nullptr;
    HWND detailsPane = nullptr;
    int detailsPaneWidth = 0;    // the pane's preferred width in pixels
    HWND statusBar = nullptr;    // when null, the control IDC_STATUS_BAR of the main window is used
};

// Moves the main window's children to the layout of its current client size. Hidden bars take no space.
void LayOutMainWindow(HWND window, const MainWindowChildren& children);
void LayOutMainWindow(HWND window);

}  // namespace lmvx
