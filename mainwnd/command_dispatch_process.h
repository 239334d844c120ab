// The main window's part in per-process commands: forwarding them to the details pane, the window items of
// the process menu, and keeping the Process popup in step with the list's selection.
#pragma once
#include <windows.h>

namespace lmvx {

struct MainWindowState;

// Posts the command to the details pane, which acts on its process; sent (and waited for) when synchronous.
// Does nothing while the main window has no details pane.
void ForwardToDetailsPane(const MainWindowState& state, unsigned commandId, bool synchronous);

// "Bring to Front" and "Close Window" of the process menu, for the list's selected process.
void BringSelectedProcessWindowToFront(const MainWindowState& state);
void CloseSelectedProcessWindow(const MainWindowState& state);

// The Process popup for the selected process, and the pane's pause button (on a change of selection).
void RefreshProcessMenu(MainWindowState& state);
// The view refresh's last step: the same for the selection its details views read.
void RefreshProcessMenu(MainWindowState& state, unsigned selectedPid);

// The list's context menu for the selected process.
void ShowListContextMenu(const MainWindowState& state);

}  // namespace lmvx
