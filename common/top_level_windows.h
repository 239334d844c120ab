// The top-level windows of the desktop and their titles. A window of this program on another thread may
// hang, so its title is asked for with a time-out.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace lmvx {

// Titles are read into 256 characters.
inline constexpr int kWindowTitleCapacity = 256;
// A window of this program on another thread may hang: its title is given up after this long.
inline constexpr UINT kWindowTitleTimeoutMs = 100;

enum class TitleRead {
    Direct,        // GetWindowTextW: another process's window, or one of the calling thread
    TimedMessage,  // WM_GETTEXT with a short time-out: this program's window on another thread, which may hang
};

TitleRead ChooseTitleRead(DWORD windowProcessId, DWORD windowThreadId, DWORD selfProcessId, DWORD selfThreadId);

// The window's title, at most 255 characters; empty when a window of this program does not answer in time.
std::wstring ReadWindowTitle(HWND window, DWORD windowProcessId, DWORD windowThreadId);

// The top-level windows of this desktop in z-order, topmost first.
std::vector<HWND> TopLevelWindowsInZOrder();

}  // namespace lmvx
