// The painter of the program's owner-drawn push buttons, called from a dialog's WM_DRAWITEM handler.
#pragma once
#include <windows.h>

namespace lmvx {

// Paints a button item (ODT_BUTTON) with a one-pixel shadow frame, its small icon and its text; other item
// types are left alone. Returns 1.
int DrawOwnerButton(HWND window, const DRAWITEMSTRUCT* item);

}  // namespace lmvx
