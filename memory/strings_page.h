// The "Printable Strings" page of the process properties window (dialog 220): the printable strings of
// the process's image file, loaded on a background thread the first time the page is shown, with a
// wildcard filter and Copy.
#pragma once
#include <windows.h>

namespace lmvx {

INT_PTR CALLBACK StringsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
