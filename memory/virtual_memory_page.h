// The "Virtual Memory" page of the process properties window (dialog 7661): one page (4096 bytes) of
// memory at a 64-bit address, what lies there, and steps page by page through committed memory.
#pragma once
#include <windows.h>

namespace lmvx {

INT_PTR CALLBACK VirtualMemoryPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
