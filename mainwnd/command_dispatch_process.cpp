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

// The Process popup and the pause button for pid. The view refresh compares the button's text with the one
// it wrote last (rememberText), so an unchanged button costs no message; a write from elsewhere clears that
// record, so that a refresh running at the same moment on the other thread cannot leave a stale text.
void ShowProcessMenuAndPauseButton(MainWindowState& state, unsigned pid, bool rememberText) {
    // One look at the process serves the menu and the pause button: each look at its suspension
    // suspends and resumes one of its threads.
    const ProcessMenuFacts facts = GatherProcessMenuFacts(g_processList, pid);
    if (!state.menuOpen) RebuildProcessPopup(state.window, g_processList, pid, facts);
    HWND pane = state.children.detailsPane;
    if (!pane) return;
    const bool suspended = facts.inSnapshot ? facts.suspended : kestrel::PRM_IsProcessSuspended(pid) != 0;
    const UINT textId = suspended ? IDS_RESUME_PROCESS : IDS_PAUSE_PROCESS;
    if (rememberText && state.pauseButtonTextId.exchange(textId) == textId) return;
    SetDlgItemTextW(pane, IDC_PANE_PAUSE, UIL_LangModule.GetLangString(textId));
    if (!rememberText) state.pauseButtonTextId = 0;
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
    ShowProcessMenuAndPauseButton(state, pid, true);
}

void RefreshProcessMenu(MainWindowState& state) {
    ShowProcessMenuAndPauseButton(state, SelectedPid(state), false);
}

void ShowListContextMenu(const MainWindowState& state) {
    ShowProcessContextMenu(state.window, g_processList, SelectedPid(state));
}

}  // namespace lmvx
