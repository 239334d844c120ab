// The process menu (the list's context menu and the main menu's Process popup) and its priority submenu,
// built afresh for a process from the provider's current snapshot.
#pragma once
#include <windows.h>

#include "common/unique_resource.h"
#include "kestrel.h"
#include "mainwnd/process_menu_items.h"

namespace lmvx {

// A PID that is never in a snapshot: what the menus are built for when no row is selected.
inline constexpr unsigned kNoProcess = 0xFFFFFFFFu;

// The process id of the list's selected row, kNoProcess when no row is selected.
unsigned SelectedProcessId(HWND list);

ProcessMenuFacts GatherProcessMenuFacts(const kestrel::TL_PROCESSLIST& provider, unsigned pid);

// Null when the process is not in the snapshot.
UniqueMenu BuildPrioritySubmenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid);
// Always a menu (only a grayed "Properties" for a process that is not in the snapshot); null on failure.
UniqueMenu BuildProcessMenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid);
// The same from facts gathered for pid beforehand.
UniqueMenu BuildProcessMenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid, ProcessMenuFacts facts);

// Puts a new process menu for pid, built from its facts, in place of the main menu's Process popup
// (position 2).
void RebuildProcessPopup(HWND mainWindow, const kestrel::TL_PROCESSLIST& provider, unsigned pid,
                         const ProcessMenuFacts& facts);

// Shows the priority submenu at (x, y); the chosen command reaches owner as WM_COMMAND.
void ShowPriorityMenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid, int x, int y, HWND owner);

// Shows the process menu at the cursor; the chosen command reaches mainWindow as WM_COMMAND.
void ShowProcessContextMenu(HWND mainWindow, const kestrel::TL_PROCESSLIST& provider, unsigned pid);

}  // namespace lmvx
