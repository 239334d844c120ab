// Where the main window's children go: pure arithmetic, then one function that moves the children.
#pragma once
#include <windows.h>

namespace lmvx {

struct MainWindowLayout {
    RECT list;
};

// Lays out a client area of the given size. Bars are stacked at the top (toolbar) and bottom (status bar);
// the list takes all remaining space and never gets a negative size.
MainWindowLayout ComputeMainWindowLayout(int clientWidth, int clientHeight, int toolbarHeight, int statusBarHeight);

// Moves the main window's children to the layout of its current client size.
void LayOutMainWindow(HWND window);

}  // namespace lmvx
