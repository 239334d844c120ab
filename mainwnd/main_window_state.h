// What the main window keeps for its lifetime; the pointer lives in the window's user data.
#pragma once
#include <windows.h>

#include <atomic>

#include "app/lmvx.h"
#include "common/unique_resource.h"
#include "mainwnd/main_window_layout.h"
#include "mainwnd/properties_windows.h"
#include "perf/perf_displays.h"
#include "perf/status_bar.h"
#include "perf/toolbar.h"
#include "proclist/process_list_view.h"
#include "proclist/refresh_cycle.h"

namespace lmvx {

struct MainWindowStart;

inline constexpr DWORD kMainWindowTag = 0x4D41494E;   // "MAIN"

struct MainWindowState {
    // The tag every window-bound record starts with; a record whose words do not match is no record.
    DWORD signature = kRecordSignature;
    DWORD typeTag = kMainWindowTag;
    const void* creator = nullptr;
    DWORD size = sizeof(MainWindowState);

    HWND window = nullptr;
    MainWindowStart* start = nullptr;
    UniqueIcon bigIcon;
    UniqueIcon smallIcon;
    // Tray icon, pop-ups and status bar; declared before the refresh cycle so that they outlive its thread.
    perf::PerfDisplays perfDisplays;
    proclist::ProcessListView processList;
    proclist::RefreshCycle refreshCycle{g_processList};
    // The other views' parts of each refresh cycle; filled during set-up, before the cycle starts.
    proclist::RefreshHooks refreshHooks;
    // Toolbar, details pane and status bar, placed around the list by LayOutMainWindow. children.detailsPane
    // is the pane page that receives the forwarded per-process commands and holds the pause button.
    Toolbar toolbar;   // its window is children.toolbar
    MainWindowChildren children;
    // True while a menu of the main window is open: the Process popup is then not replaced under the user.
    std::atomic<bool> menuOpen{false};
    // The selected PID as the details views read it in this view refresh; the Process menu, rebuilt right
    // after them, uses it instead of asking the list again. UI thread only, like the pane and the menu.
    unsigned selectedPidOfRefresh = 0xFFFFFFFFu;
    // The pause button's text as last written, so an unchanged one costs no message. UI thread only.
    UINT pauseButtonTextId = 0;
    OpenPropertiesWindows propertiesWindows;
};

inline bool IsMainWindowRecord(const MainWindowState* state) {
    return state && state->signature == kRecordSignature && state->typeTag == kMainWindowTag &&
           state->size == sizeof(MainWindowState);
}

}  // namespace lmvx
