#include "mainwnd/command_dispatch_process.h"

#include "finch.h"
#include "mainwnd/main_window_state.h"
#include "mainwnd/process_menu.h"
#include "mainwnd/process_windows.h"
#include "resource.h"

namespace lmvx {
namespace {

unsigned SelectedPid(const MainWindowState& state) {
    return SelectedProcessId(state.processList.GetListView());
}

}  // namespace

void ForwardToDetailsPane(const MainWindowState& state, unsigned commandId, bool synchronous) {
    HWND pane = state.children.detailsPane;
    if (!pane) return;
    if (synchronous) {
        SendMessageW(pane, WM_COMMAND, commandId, 0);
    } else {
        PostMessageW(pane, WM_COMMAND, commandId, 0);
    }
}

void BringSelectedProcessWindowToFront(const MainWindowState& state) {
    BringProcessWindowToFront(SelectedPid(state), 0, 0, state.window);
}

void CloseSelectedProcessWindow(const MainWindowState& state) {
    CloseProcessWindow(SelectedPid(state), state.window);
}

void RefreshProcessMenu(MainWindowState& state, unsigned pid) {
    // One look at the process serves the menu and the pause button: each look at its suspension
    // suspends and resumes one of its threads.
    const ProcessMenuFacts facts = GatherProcessMenuFacts(g_processList, pid);
    if (!state.menuOpen) RebuildProcessPopup(state.window, g_processList, pid, facts);
    if (HWND pane = state.children.detailsPane) {
        const bool suspended = facts.inSnapshot ? facts.suspended : kestrel::PRM_IsProcessSuspended(pid) != 0;
        // Only this function writes the button's text: an unchanged one is neither sent nor repainted.
        const UINT textId = suspended ? IDS_RESUME_PROCESS : IDS_PAUSE_PROCESS;
        if (state.pauseButtonTextId.exchange(textId) != textId) {
            SetDlgItemTextW(pane, IDC_PANE_PAUSE, UIL_LangModule.GetLangString(textId));
        }
    }
}

void RefreshProcessMenu(MainWindowState& state) {
    RefreshProcessMenu(state, SelectedPid(state));
}

void ShowListContextMenu(const MainWindowState& state) {
    ShowProcessContextMenu(state.window, g_processList, SelectedPid(state));
}

}  // namespace lmvx
