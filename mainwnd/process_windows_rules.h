// The rules of the window enumeration of a process, as values in and values out.
#pragma once
#include <windows.h>

#include <cstddef>

namespace lmvx {

// Titles are read into 256 characters; a window counts with a title of 1 to 255 characters.
inline constexpr int kWindowTitleCapacity = 256;

enum class TitleRead {
    Direct,        // GetWindowTextW: another process's window, or one of the calling thread
    TimedMessage,  // WM_GETTEXT with a short time-out: this program's window on another thread, which may hang
};

TitleRead ChooseTitleRead(DWORD windowProcessId, DWORD windowThreadId, DWORD selfProcessId, DWORD selfThreadId);
bool QualifiesAsProcessWindow(bool visible, DWORD windowProcessId, DWORD pid, size_t titleLength);
// Where a window menu opens: each coordinate that is 0 is taken from the cursor.
POINT WindowMenuPosition(int x, int y, POINT cursor);

}  // namespace lmvx
