// The "Process Memory Viewer" (dialog 261): region, symbol and a hex dump of the memory at an address
// of a process, with 32-bit addresses throughout.
#pragma once
#include <windows.h>

namespace lmvx {

// Runs the viewer for the process on a dialog thread of its own, pumping the caller's messages until
// it closes.
void ShowMemoryViewer(unsigned processId, HWND owner);

INT_PTR CALLBACK MemoryViewerProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
