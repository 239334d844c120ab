// What the main window keeps for its lifetime; the pointer lives in the window's user data.
#pragma once
#include <windows.h>

#include "app/unique_handle.h"

namespace lmvx {

struct MainWindowStart;

struct MainWindowState {
    HWND window = nullptr;
    MainWindowStart* start = nullptr;
    UniqueIcon bigIcon;
    UniqueIcon smallIcon;
};

}  // namespace lmvx
