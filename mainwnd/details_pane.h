// The details pane: a child dialog of the main window beside the process list. It shows the selected
// process (icon, name, company, path, priority, a small CPU and memory graph, the note kept for its image)
// and carries out the per-process commands that its buttons, the main window, the toolbar and the process
// menu send it with WM_COMMAND.
#pragma once
#include <windows.h>

#include "kestrel.h"
#include "wren.h"

namespace lmvx {

// What the pane calls to act on a process. Each member may be null: the pane then ignores that command.
struct PaneActions {
    int (*terminate)(unsigned pid, HWND owner) = nullptr;      // asks first; 1 when ended
    int (*pause)(unsigned pid, HWND owner) = nullptr;
    int (*resume)(unsigned pid, HWND owner) = nullptr;
    int (*isSuspended)(unsigned pid) = nullptr;
    int (*pageOut)(unsigned pid, HWND owner) = nullptr;
    int (*setPriority)(unsigned pid, unsigned commandId, HWND owner) = nullptr;
    int (*openInShell)(const wchar_t* path) = nullptr;
    // Shows the priority submenu of the process at (x, y), owned by owner.
    void (*showPriorityMenu)(unsigned pid, int x, int y, HWND owner) = nullptr;
    // Raises the window of a process or offers its windows in a menu at (x, y).
    int (*showWindowsMenu)(unsigned pid, int x, int y, HWND owner) = nullptr;
    void (*openProperties)(unsigned pid, HWND owner) = nullptr;
    void (*openMemoryViewer)(unsigned pid, HWND owner) = nullptr;
    void (*openNetworkEndpoints)(unsigned pid, HWND owner) = nullptr;
    void (*openKernelObjects)(unsigned pid, HWND owner) = nullptr;
    const wchar_t* (*priorityName)(unsigned priorityClass) = nullptr;
    // Painter of the owner-drawn buttons; without one the pane paints plain push buttons.
    int (*drawOwnerButton)(HWND window, const DRAWITEMSTRUCT* item) = nullptr;
    // The CPU (series 0) and memory (series 1) history of a process; without it the graph stays empty.
    wren::PERFGRAPH* (*historyGraph)(unsigned pid) = nullptr;
};

// Creates the pane (dialog 7662 in the current language) as a child of mainWindow. processList is the list
// view whose selected row gives the selected PID. Null when the template cannot be loaded.
HWND DetailsPaneCreate(HWND mainWindow, HWND processList, const kestrel::TL_PROCESSLIST& provider,
                       const PaneActions& actions);

// The width the pane's layout is made for, in pixels.
int DetailsPanePreferredWidth(HWND pane);

// Shows the process selected in the list (nothing when no row is selected) and refreshes what changes.
// Called each refresh cycle and when the list's selection changes.
void DetailsPaneFollowSelection(HWND pane);
// The same with the selection already read (0: no row selected).
void DetailsPaneFollowSelection(HWND pane, unsigned selectedPid);

// Shows this process: writes the hidden PID field and fills the views.
void DetailsPaneShowProcess(HWND pane, unsigned pid);
unsigned DetailsPaneShownPid(HWND pane);

// Draws the CPU and memory history of the process into the pane's graph; nothing when the process is gone.
// Called by the refresh thread every cycle, also while the main window is hidden.
void DrawProcessGraphInPane(HWND pane, unsigned pid);

// The PID of the selected row of a process list view (rows carry their PID as item data); 0 when none.
unsigned SelectedPidOfList(HWND processList);

INT_PTR CALLBACK DetailsPaneProc(HWND pane, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
