// The process properties window: a frame with a tree of pages, on a thread of its own per window.
#pragma once
#include <windows.h>

#include "props/property_pages.h"

namespace lmvx {

// Opens a properties window for pid, owned by parent, and returns at once (1; 0 when no thread could be
// started). mainWindow receives WM_USER / WM_USER + 1 with the frame's handle when it opens and closes;
// pages is the table of pages in creation order and must outlive the window. refreshInterval is the
// main window's update interval in ms (0 means 100 ms).
int ShowProcessProperties(unsigned pid, HWND parent, HWND mainWindow, kestrel::TL_PROCESSLIST* processList,
                          PropertyPageTable pages, unsigned refreshInterval);

}  // namespace lmvx
