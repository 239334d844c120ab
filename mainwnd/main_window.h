// The main window: dialog 129, run modally by the UI thread with the start record as parameter.
#pragma once
#include <windows.h>

namespace lmvx {

INT_PTR CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The refresh period the main window runs at now, in ms; the stored interval while there is no main window.
unsigned MainWindowRefreshPeriod();

}  // namespace lmvx
