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

// The Process popup and the pause button for pid, on the UI thread, which owns both. The button's text as
// last written is kept, so an unchanged button costs no message.
void ShowProcessMenuAndPauseButton(MainWindowState& state, unsigned pid) {
    const ProcessMenuFacts facts = GatherProcessMenuFacts(g_processList, pid);
    if (!state.menuOpen) RebuildProcessPopup(state.window, g_processList, pid, facts);
    HWND pane = state.children.detailsPane;
    if (!pane) return;
    const bool suspended = facts.inSnapshot ? facts.suspended : kestrel::PRM_IsProcessSuspended(pid) != 0;
    const UINT textId = suspended ? IDS_RESUME_PROCESS : IDS_PAUSE_PROCESS;
    if (state.pauseButtonTextId == textId) return;
    SetDlgItemTextW(pane, IDC_PANE_PAUSE, UIL_LangModule.GetLangString(textId));
    state.pauseButtonTextId = textId;
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
    ShowProcessMenuAndPauseButton(state, pid);
}

void RefreshProcessMenu(MainWindowState& state) {
    ShowProcessMenuAndPauseButton(state, SelectedPid(state));
}

void ShowListContextMenu(const MainWindowState& state) {
    ShowProcessContextMenu(state.window, g_processList, SelectedPid(state));
}

}  // namespace lmvx
