#include "mainwnd/main_window_layout.h"

#include <algorithm>

#include "resource.h"

namespace lmvx {
namespace {

// The child's own visible style, not IsWindowVisible: the first layout runs in WM_INITDIALOG, while the
// main window itself is still hidden and IsWindowVisible would call every child hidden.
bool ShownByStyle(HWND child) {
    return child && (GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) != 0;
}

int VisibleHeight(HWND child) {
    if (!ShownByStyle(child)) return 0;
    RECT rect;
    GetWindowRect(child, &rect);
    return rect.bottom - rect.top;
}

void MoveTo(HWND child, const RECT& rect) {
    if (!child) return;
    MoveWindow(child, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
}

}  // namespace

MainWindowLayout ComputeMainWindowLayout(const MainWindowLayoutInput& input) {
    MainWindowLayout layout{};
    const int width = std::max(0, input.clientWidth);
    const int height = std::max(0, input.clientHeight);
    const int top = std::clamp(input.toolbarHeight, 0, height);
    const int bottom = std::max(top, height - std::max(0, input.statusBarHeight));
    // The list keeps its minimum width first; the pane gets what it asks for out of the rest.
    const int paneWidth = std::clamp(input.detailsPaneWidth, 0, std::max(0, width - kMinimumListWidth));

    layout.toolbar = RECT{0, 0, width, top};
    layout.detailsPane = RECT{0, top, paneWidth, bottom};
    layout.list = RECT{paneWidth, top, width, bottom};
    layout.statusBar = RECT{0, bottom, width, height};
    return layout;
}

MainWindowLayout ComputeMainWindowLayout(int clientWidth, int clientHeight, int toolbarHeight, int statusBarHeight) {
    return ComputeMainWindowLayout(MainWindowLayoutInput{clientWidth, clientHeight, toolbarHeight, statusBarHeight, 0});
}

void LayOutMainWindow(HWND window, const MainWindowChildren& children) {
    RECT client;
    GetClientRect(window, &client);
    HWND statusBar = children.statusBar ? children.statusBar : GetDlgItem(window, IDC_STATUS_BAR);
    const bool paneShown = ShownByStyle(children.detailsPane);
    const MainWindowLayout layout = ComputeMainWindowLayout(MainWindowLayoutInput{
        client.right, client.bottom, VisibleHeight(children.toolbar), VisibleHeight(statusBar),
        paneShown ? children.detailsPaneWidth : 0});
    if (VisibleHeight(children.toolbar) > 0) MoveTo(children.toolbar, layout.toolbar);
    if (paneShown) MoveTo(children.detailsPane, layout.detailsPane);
    MoveTo(GetDlgItem(window, IDC_PROCESS_LIST), layout.list);
    if (VisibleHeight(statusBar) > 0) MoveTo(statusBar, layout.statusBar);
}

void LayOutMainWindow(HWND window) {
    LayOutMainWindow(window, MainWindowChildren{});
}

}  // namespace lmvx
