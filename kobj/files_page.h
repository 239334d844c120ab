// The "Open Files" page of the process properties window: the process's handles to files and folders on a
// drive, one row per handle with the file's system icon and its path.
#pragma once
#include <windows.h>

namespace lmvx::kobj {

// lParam of WM_INITDIALOG: the window's ProcessPropertiesContext.
INT_PTR CALLBACK FilesPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::kobj
