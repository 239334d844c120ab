// The "Search Memory" dialog (264): printable strings in the committed private memory of the viewer's
// process, optionally only those that contain a text; a result opens its address in the viewer.
#pragma once
#include <windows.h>

#include "memory/memory_viewer_context.h"

namespace lmvx {

// Runs the search dialog modally on the calling (the viewer's) thread; the viewer stays usable.
void ShowMemorySearch(MemoryViewerContext& viewer);

INT_PTR CALLBACK MemorySearchProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK SearchProgressProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
