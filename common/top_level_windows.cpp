#include "common/top_level_windows.h"

namespace lmvx {

TitleRead ChooseTitleRead(DWORD windowProcessId, DWORD windowThreadId, DWORD selfProcessId, DWORD selfThreadId) {
    return windowProcessId == selfProcessId && windowThreadId != selfThreadId ? TitleRead::TimedMessage
                                                                              : TitleRead::Direct;
}

std::wstring ReadWindowTitle(HWND window, DWORD windowProcessId, DWORD windowThreadId) {
    wchar_t title[kWindowTitleCapacity] = {};
    if (ChooseTitleRead(windowProcessId, windowThreadId, GetCurrentProcessId(), GetCurrentThreadId()) ==
        TitleRead::TimedMessage) {
        DWORD_PTR copied = 0;
        if (!SendMessageTimeoutW(window, WM_GETTEXT, kWindowTitleCapacity, reinterpret_cast<LPARAM>(title),
                                 SMTO_ABORTIFHUNG, kWindowTitleTimeoutMs, &copied)) {
            return std::wstring();
        }
        title[kWindowTitleCapacity - 1] = L'\0';
    } else {
        GetWindowTextW(window, title, kWindowTitleCapacity);
    }
    return title;
}

// One call lists them all, where a walk with GetWindow(GW_HWNDNEXT) asks the window manager once per
// window; the Process menu counts windows on every refresh. (Wine's EnumWindows also asks whether each
// window still exists before handing it on; a window that is gone by now fails the owner lookup anyway.)
std::vector<HWND> TopLevelWindowsInZOrder() {
    std::vector<HWND> windows;
    EnumDesktopWindows(nullptr,
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

}  // namespace lmvx
