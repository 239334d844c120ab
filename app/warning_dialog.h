// The shared warning dialog: a bold headline, a message and a "Do not show this warning again." box.
#pragma once
#include <windows.h>

namespace lmvx {

// Shows the dialog modally; returns 1 when the user ticked the box, else 0 (OK and Escape alike).
int ShowWarningDialog(HWND parent, const wchar_t* message);

}  // namespace lmvx
