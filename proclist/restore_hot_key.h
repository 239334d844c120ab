// Alt + left Ctrl + F11 brings a hidden main window back; the main window polls for it on a timer.
#pragma once
#include <windows.h>

namespace proclist {

using KeyStateReader = SHORT(WINAPI*)(int virtualKey);

// True when Alt, left Ctrl and F11 are all reported down (high bit) by the reader.
bool IsRestoreHotKeyDown(KeyStateReader readKeyState);

}  // namespace proclist
