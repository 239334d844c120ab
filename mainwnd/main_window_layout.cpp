#include "mainwnd/main_window_layout.h"

#include <algorithm>

#include "resource.h"

namespace lmvx {
namespace {

int VisibleHeight(HWND child) {
    if (!child || !IsWindowVisible(child)) return 0;
    RECT rect;
    GetWindowRect(child, &rect);
    return rect.bottom - rect.top;
}

}  // namespace

MainWindowLayout ComputeMainWindowLayout(int clientWidth, int clientHeight, int toolbarHeight, int statusBarHeight) {
    MainWindowLayout layout{};
    const int width = std::max(0, clientWidth);
    const int top = std::clamp(toolbarHeight, 0, std::max(0, clientHeight));
    const int bottom = std::max(top, clientHeight - std::max(0, statusBarHeight));
    layout.list = RECT{0, top, width, bottom};
    return layout;
}

void LayOutMainWindow(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    const MainWindowLayout layout =
        ComputeMainWindowLayout(client.right, client.bottom, 0, VisibleHeight(GetDlgItem(window, IDC_STATUS_BAR)));
    const RECT& list = layout.list;
    if (HWND listView = GetDlgItem(window, IDC_PROCESS_LIST)) {
        MoveWindow(listView, list.left, list.top, list.right - list.left, list.bottom - list.top, TRUE);
    }
}

}  // namespace lmvx
