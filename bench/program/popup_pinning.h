// Opens the running program's CPU and memory pop-ups from outside and pins them, with the messages the
// program itself receives: the tray icon's hover, a mouse move over the memory pane, a press on each
// pop-up's frame.
#pragma once
#include <windows.h>

namespace lmvx_bench {

struct PinnedPopups {
    HWND cpu = nullptr;
    HWND memory = nullptr;
};

// The pop-ups owned by mainWindow, shown and pinned; a member stays null when that pop-up was not found
// or would not pin within limitMs.
PinnedPopups ShowAndPinPopups(HWND mainWindow, DWORD limitMs);

bool IsPinnedAndShown(HWND popup);

}  // namespace lmvx_bench
