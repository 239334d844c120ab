// What the Performance and Memory pages share: a poll of the program's process list every 100 ms on timer
// 6051 that refreshes the page's fields, and a history graph of the process that shows an empty grid once
// the process has left the list (its fields keep their last values).
#pragma once
#include <windows.h>

#include <initializer_list>
#include <string>

#include "kestrel.h"

namespace lmvx {

struct PollingPage {
    int graphId;
    unsigned series;   // of the provider's per-process graph: 0 CPU usage, 1 memory
    COLORREF fill;
    COLORREF line;
    // Writes the fields of the process at item (compare-then-set).
    void (*update)(HWND page, const kestrel::TL_PROCESSLIST& list, int item);
};

// Bold title and bold fields, and the two section icons: CPU for the first section, memory for the second
// (secondIconId).
void SetUpPollingPage(HWND page, std::initializer_list<int> boldIds, int secondIconId);

// Writes the field only when its text differs (no flicker at ten updates a second).
void SetFieldIfChanged(HWND page, int controlId, const std::wstring& text);
// Moves the bar only when its position differs.
void SetBarIfChanged(HWND page, int controlId, unsigned position);

// Starts the poll; the first update comes at once.
void StartPolling(HWND page);

// WM_TIMER of the poll, WM_DRAWITEM (the graph, else the shared button painter) and the commands that end a
// page. Returns the dialog procedure's result; FALSE for other messages.
INT_PTR HandlePollingPageMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam, const PollingPage& kind);

}  // namespace lmvx
