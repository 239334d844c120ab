// Small helpers shared by every window of the program: placement, fonts, frames and flicker-free texts.
#include "wren.h"

#include <commctrl.h>

#include <string>

#include "center_math.h"
#include "unique_resource.h"

namespace wren {
namespace {

Box BoxOf(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

RECT WorkAreaNear(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor)) return monitor.rcWork;
    RECT workArea{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea, 0);
    return workArea;
}

// A control's whole text, however long.
std::wstring WindowText(HWND window) {
    // One read covers every usual text. A control of another thread answers each read with a message
    // round trip, so the length is asked for only when the text fills the buffer.
    constexpr int kUsualLength = 512;
    wchar_t usual[kUsualLength];
    const int copied = GetWindowTextW(window, usual, kUsualLength);
    if (copied < kUsualLength - 1) return std::wstring(usual, static_cast<size_t>(copied > 0 ? copied : 0));
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace

void CenterWindow(HWND window, HWND over) {
    RECT windowRect{};
    if (!GetWindowRect(window, &windowRect)) return;
    const RECT workArea = WorkAreaNear(over ? over : window);
    RECT overRect = workArea;
    if (over && IsWindowVisible(over) && !IsIconic(over)) GetWindowRect(over, &overRect);
    Position position = CenteredPosition(BoxOf(windowRect), BoxOf(overRect), BoxOf(workArea));
    if (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) {
        // A child window is placed in its parent's client coordinates.
        POINT corner{position.x, position.y};
        ScreenToClient(GetParent(window), &corner);
        position = {corner.x, corner.y};
    }
    SetWindowPos(window, nullptr, position.x, position.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void EmStaticEdge(HWND dialog, int controlId) {
    HWND control = GetDlgItem(dialog, controlId);
    if (!control) return;
    const LONG_PTR exStyle = GetWindowLongPtrW(control, GWL_EXSTYLE);
    SetWindowLongPtrW(control, GWL_EXSTYLE, exStyle | WS_EX_STATICEDGE);
    // The frame is part of the non-client area, which is only recomputed on request.
    SetWindowPos(control, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

int VerifyCritialAlloc(const void* pointer) {
    if (pointer) return 1;
    const wchar_t* caption = *GetAppName() ? GetAppName() : L"Error";
    MessageBoxW(nullptr,
                HardcodeLangString(L"There is not enough memory to continue. The application will now close.",
                                   L"Es ist nicht gen\u00fcgend Arbeitsspeicher vorhanden. "
                                   L"Die Anwendung wird jetzt beendet."),
                caption, MB_ICONERROR | MB_SYSTEMMODAL);
    // Without the memory it needs the program cannot go on in a defined way: end it here.
    ExitProcess(ERROR_NOT_ENOUGH_MEMORY);
}

int SetDlgItemTextW(HWND dialog, int controlId, const wchar_t* text) {
    return SetWindowTextIfChanged(GetDlgItem(dialog, controlId), text);
}

int SetWindowTextIfChanged(HWND window, const wchar_t* text) {
    if (!window) return 0;
    const wchar_t* wanted = text ? text : L"";
    if (WindowText(window) == wanted) return 1;   // unchanged: no repaint, no flicker
    return ::SetWindowTextW(window, wanted) ? 1 : 0;
}

int ListViewSetItemText(HWND listView, int row, int column, const wchar_t* text) {
    if (!listView || row < 0 || column < 0) return 0;
    // Written as it is: the list that calls this knows what its cells hold, and a read-back first would
    // double the messages of every refresh.
    const wchar_t* wanted = text ? text : L"";
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(wanted);
    return SendMessageW(listView, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)) ? 1
                                                                                                                : 0;
}

}  // namespace wren
