// The top-level windows of a process: counted for the process menu, brought to front or asked to close.
// A window counts when it is visible, belongs to the process and has a title of 1 to 255 characters.
// The walk starts at the second window in z-order, so the topmost window is never considered (intended).
#pragma once
#include <windows.h>

namespace lmvx {

int CountProcessWindows(unsigned pid);
// With one window: restores and raises it. Otherwise offers the windows (or a grayed "no window" entry) in a
// popup menu owned by owner, at (x, y); a coordinate of 0 takes the cursor's. 1 when a window was raised.
int BringProcessWindowToFront(unsigned pid, int x, int y, HWND owner);
// Like BringProcessWindowToFront, but posts WM_CLOSE to the window; the menu always opens at the cursor.
// Returns the result of the posted message, 0 when no window was chosen.
int CloseProcessWindow(unsigned pid, HWND owner);

}  // namespace lmvx
