// What the main window keeps for its lifetime; the pointer lives in the window's user data.
#pragma once
#include <windows.h>

#include "app/lmvx.h"
#include "app/unique_handle.h"
#include "proclist/process_list_view.h"
#include "proclist/refresh_cycle.h"

namespace lmvx {

struct MainWindowStart;

struct MainWindowState {
    HWND window = nullptr;
    MainWindowStart* start = nullptr;
    UniqueIcon bigIcon;
    UniqueIcon smallIcon;
    proclist::ProcessListView processList;
    proclist::RefreshCycle refreshCycle{g_processList};
};

}  // namespace lmvx
