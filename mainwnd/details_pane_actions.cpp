#include "mainwnd/details_pane_actions.h"

#include "app/lmvx.h"
#include "app/shared_icons.h"
#include "mainwnd/main_window.h"
#include "common/owner_button.h"
#include "kobj/kernel_objects_dialog.h"
#include "mainwnd/priority_names.h"
#include "mainwnd/process_actions.h"
#include "mainwnd/process_menu.h"
#include "mainwnd/process_windows.h"
#include "mainwnd/properties_windows.h"
#include "common/shell_open.h"
#include "net/endpoints_dialog.h"
#include "resource.h"
#include "memory/memory_viewer.h"

namespace lmvx {
namespace {

// The priority submenu of the process; its commands go to owner, the pane, which sets the priority. No menu
// for a process that is not in the snapshot.
void ShowPanePriorityMenu(unsigned pid, int x, int y, HWND owner) {
    ShowPriorityMenu(g_processList, pid, x, y, owner);
}

int ShowWindowsMenu(unsigned pid, int x, int y, HWND owner) { return BringProcessWindowToFront(pid, x, y, owner); }
int IsSuspended(unsigned pid) { return kestrel::PRM_IsProcessSuspended(pid); }
void OpenKernelObjects(unsigned pid, HWND owner) { kobj::ShowHandleListDialog(pid, owner, OpenInShell); }

// A record per dialog: the pane keeps dispatching while one is open, so a second one may open beside it.
void OpenNetworkEndpoints(unsigned pid, HWND owner) {
    net::EndpointsDialogRecord record;
    record.currentInterval = MainWindowRefreshPeriod;
    record.rowIcon = SharedIconById(IDI_PORT).small;
    record.drawOwnerButton = DrawOwnerButton;
    net::ShowEndpointsDialog(record, pid, owner);
}

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
    actions.openNetworkEndpoints = OpenNetworkEndpoints;
    actions.priorityName = PriorityClassName;
    actions.drawOwnerButton = DrawOwnerButton;
    actions.historyGraph = kestrel::GetProcessHistoryGraph;
    actions.openProperties = OpenPropertiesWindow;
    actions.openKernelObjects = OpenKernelObjects;
    actions.openMemoryViewer = ShowMemoryViewer;
    return actions;
}

}  // namespace lmvx
