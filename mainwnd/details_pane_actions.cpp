#include "mainwnd/details_pane_actions.h"

#include "app/lmvx.h"
#include "mainwnd/owner_button.h"
#include "mainwnd/priority_names.h"
#include "mainwnd/process_actions.h"
#include "mainwnd/process_menu.h"
#include "mainwnd/process_windows.h"
#include "mainwnd/shell_open.h"

namespace lmvx {
namespace {

// The priority submenu of the process; its commands go to owner, the pane, which sets the priority. No menu
// for a process that is not in the snapshot.
void ShowPanePriorityMenu(unsigned pid, int x, int y, HWND owner) {
    ShowPriorityMenu(g_processList, pid, x, y, owner);
}

int ShowWindowsMenu(unsigned pid, int x, int y, HWND owner) { return BringProcessWindowToFront(pid, x, y, owner); }
int IsSuspended(unsigned pid) { return kestrel::PRM_IsProcessSuspended(pid); }

}  // namespace

PaneActions ProgramPaneActions() {
    PaneActions actions;
    actions.terminate = actions::Terminate;
    actions.pause = actions::Pause;
    actions.resume = actions::Resume;
    actions.isSuspended = IsSuspended;
    actions.pageOut = actions::PageOut;
    actions.setPriority = actions::SetPriority;
    actions.openInShell = OpenInShell;
    actions.showPriorityMenu = ShowPanePriorityMenu;
    actions.showWindowsMenu = ShowWindowsMenu;
    actions.priorityName = PriorityClassName;
    actions.drawOwnerButton = DrawOwnerButton;
    actions.historyGraph = kestrel::GetProcessHistoryGraph;
    return actions;
}

}  // namespace lmvx
