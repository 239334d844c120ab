#include "mainwnd/main_window.h"

#include <commctrl.h>

#include <memory>
#include <optional>

#include "app/lmvx.h"
#include "app/option_keys.h"
#include "finch.h"
#include "mainwnd/command_dispatch.h"
#include "mainwnd/command_dispatch_process.h"
#include "mainwnd/details_pane_actions.h"
#include "mainwnd/limited_access_menu.h"
#include "mainwnd/main_window_layout.h"
#include "mainwnd/main_window_state.h"
#include "mainwnd/process_menu.h"
#include "mainwnd/window_placement.h"
#include "perf/sampler.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

// How long the end of the program waits for open properties windows to close.
constexpr DWORD kPropertiesCloseTimeoutMs = 2000;
// lParam: the std::function<void()> to run on this thread.
constexpr UINT kRunOnThisThreadMessage = WM_APP + 0x102;

MainWindowState* StateOf(HWND window) {
    auto* state = reinterpret_cast<MainWindowState*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return IsMainWindowRecord(state) ? state : nullptr;
}

void SetProgramIcons(MainWindowState& state) {
    HINSTANCE instance = wren::GetStoredInstance();
    state.bigIcon.Reset(static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(IDI_LUMIVEX), IMAGE_ICON, 32, 32, 0)));
    state.smallIcon.Reset(static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(IDI_LUMIVEX), IMAGE_ICON, 16, 16, 0)));
    SendMessageW(state.window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(state.bigIcon.Get()));
    SendMessageW(state.window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(state.smallIcon.Get()));
}

void ReplaceMenu(HWND window) {
    HMENU old = GetMenu(window);
    SetMenu(window, UIL_LangModule.LoadLangMenu(IDR_MAIN_MENU));
    if (old) DestroyMenu(old);
}

INT_PTR OnInitDialog(HWND window, MainWindowStart* start) {
    auto state = std::make_unique<MainWindowState>();
    state->creator = reinterpret_cast<const void*>(&OnInitDialog);
    state->window = window;
    state->start = start;
    if (start) start->mainWindow = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(state.get()));
    SetWindowTextW(window, wren::GetAppNameFull());

    ShowStartupStatus(UIL_LangModule.GetLangString(IDS_STATUS_LOADING_RESOURCES));
    SetProgramIcons(*state);

    ShowStartupStatus(UIL_LangModule.GetLangString(IDS_STATUS_LOADING_TRAY_ICON));
    perf::CreateTrayIcon(state->perfDisplays, window, state->smallIcon.Get());

    ShowStartupStatus(UIL_LangModule.GetLangString(IDS_STATUS_LOADING_TOOLBAR));
    ReplaceMenu(window);
    perf::CreatePerfPopups(state->perfDisplays, window);
    ToolbarCreate(state->toolbar, window);
    state->children.toolbar = state->toolbar.window;

    ShowStartupStatus(UIL_LangModule.GetLangString(IDS_STATUS_LOADING_UI));
    state->processList.Attach(GetDlgItem(window, IDC_PROCESS_LIST), g_processList);
    state->processList.RestoreState();
    perf::CreateStatusBar(state->perfDisplays, window);
    state->perfDisplays.statusBar.limitedAccessMenu = [window](POINT at) { return ShowLimitedAccessMenu(window, at); };
    state->children.statusBar = state->perfDisplays.statusBar.bar;
    perf::AddPerfDisplayHooks(state->perfDisplays, state->refreshHooks);
    HWND pane = DetailsPaneCreate(window, state->processList.GetListView(), g_processList, ProgramPaneActions());
    state->children.detailsPane = pane;
    state->children.detailsPaneWidth = pane ? DetailsPanePreferredWidth(pane) : 0;
    state->refreshHooks.refreshDetailsViews = [pane, main = state.get()](HWND) {
        RunOnMainWindowThread(main->window, [&] {
            const std::optional<unsigned> selectedRow = main->processList.SelectedPid();
            const unsigned selected = selectedRow ? *selectedRow : kNoProcess;
            main->selectedPidOfRefresh = selected;
            DetailsPaneFollowSelection(pane, selected == kNoProcess ? 0 : selected);
        });
    };

    // Runs right after the details views in the same view refresh: their reading of the selection holds.
    state->refreshHooks.rebuildProcessMenu = [main = state.get()] {
        RunOnMainWindowThread(main->window, [main] { RefreshProcessMenu(*main, main->selectedPidOfRefresh); });
    };
    // Every cycle on the refresh thread, also while the window is hidden: the graph of the marked process.
    state->refreshHooks.updateSelectionView = [pane, main = state.get()](HWND) {
        if (const std::optional<unsigned> marked = main->processList.MarkedPid()) DrawProcessGraphInPane(pane, *marked);
    };
    state->refreshHooks.setSamplerInterval = perf::SetSamplerInterval;
    state->refreshCycle.Init(window, state->refreshHooks);
    state->refreshCycle.LoadRate();
    const auto& topmost = options::Topmost;
    if (wren::regOptions.GetOptionBOOL(topmost.name, topmost.defaultValue)) {
        SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    }
    UpdateMainMenuChecks(*state);

    state->refreshCycle.Start();

    RestoreMainWindowPlacement(window);
    LayOutMainWindow(window, state->children);
    ShowWindow(window, IsZoomed(window) ? SW_SHOWMAXIMIZED : SW_SHOW);
    SetForegroundWindow(window);
    state.release();   // owned by the window from here on; freed on WM_NCDESTROY
    return TRUE;
}

// Everything the window saves when it closes, in the order the settings expect.
void SaveStateAtClose(MainWindowState& state) {
    SaveMainWindowPlacement(state.window);
    state.perfDisplays.tray.TrayShutdown();   // after the refresh thread, which redraws the icon, has ended
    state.processList.SaveSortState();
    state.refreshCycle.SavePeriod();
    const bool topmost = (GetWindowLongPtrW(state.window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    wren::regOptions.SetOptionBOOL(options::Topmost.name, topmost ? 1 : 0);
    state.processList.SaveColumnOrder();
}

// WM_USER with wParam 4000 is the refresh thread's request; any other non-null wParam is a properties
// window announcing itself.
void OnUserMessage(MainWindowState& state, WPARAM wParam) {
    if (!state.refreshCycle.OnRefreshMessage(wParam) && wParam != 0) {
        state.propertiesWindows.Add(reinterpret_cast<HWND>(wParam));
    }
}

void OnDestroy(HWND window) {
    MainWindowState* state = StateOf(window);
    if (!state) return;
    state->propertiesWindows.CloseAll(kPropertiesCloseTimeoutMs);
    state->refreshCycle.Stop();
    SaveStateAtClose(*state);
}

void OnCommand(HWND window, WORD command) {
    if (MainWindowState* state = StateOf(window)) DispatchCommand(*state, command);
}

INT_PTR OnNotify(HWND window, const NMHDR* header) {
    MainWindowState* state = StateOf(window);
    if (!state || header->idFrom != IDC_PROCESS_LIST) return FALSE;
    return DispatchListNotification(*state, *header);
}

void OnSize(HWND window) {
    if (MainWindowState* state = StateOf(window)) LayOutMainWindow(window, state->children);
}

void OnNcDestroy(HWND window) {
    std::unique_ptr<MainWindowState> state(StateOf(window));
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    if (state && state->start) state->start->mainWindow = nullptr;
}

}  // namespace

unsigned MainWindowRefreshPeriod() {
    if (const MainWindowState* state = StateOf(g_mainWindowStart.mainWindow)) return state->refreshCycle.GetPeriod();
    return wren::regOptions.GetOptionDWORD(options::UpdateInterval.name, options::UpdateInterval.defaultValue);
}

void RunOnMainWindowThread(HWND mainWindow, const std::function<void()>& work) {
    if (GetWindowThreadProcessId(mainWindow, nullptr) == GetCurrentThreadId()) {
        work();
    } else {
        SendMessageW(mainWindow, kRunOnThisThreadMessage, 0, reinterpret_cast<LPARAM>(&work));
    }
}

INT_PTR CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (MainWindowState* state = StateOf(window);
        state && perf::OnPerfDisplayMessage(state->perfDisplays, window, message, wParam, lParam)) {
        return TRUE;
    }
    switch (message) {
    case WM_INITDIALOG:
        return OnInitDialog(window, reinterpret_cast<MainWindowStart*>(lParam));
    case WM_COMMAND:
        OnCommand(window, LOWORD(wParam));
        return TRUE;
    case WM_SIZE:
        OnSize(window);
        return TRUE;
    case WM_NOTIFY:
        return OnNotify(window, reinterpret_cast<const NMHDR*>(lParam));
    case WM_TIMER:
        if (MainWindowState* state = StateOf(window)) state->refreshCycle.OnTimer(wParam);
        return TRUE;
    case WM_ENTERMENULOOP:
    case WM_EXITMENULOOP:
        if (MainWindowState* state = StateOf(window)) state->menuOpen = message == WM_ENTERMENULOOP;
        return FALSE;
    case WM_USER:
        if (MainWindowState* state = StateOf(window)) OnUserMessage(*state, wParam);
        return TRUE;
    case WM_USER + 1:
        if (MainWindowState* state = StateOf(window)) state->propertiesWindows.Remove(reinterpret_cast<HWND>(wParam));
        return TRUE;
    case kRunOnThisThreadMessage:
        if (StateOf(window)) (*reinterpret_cast<const std::function<void()>*>(lParam))();
        return TRUE;
    case WM_DESTROY:
        OnDestroy(window);
        return TRUE;
    case WM_NCDESTROY:
        OnNcDestroy(window);
        return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx
