#include "mainwnd/process_windows.h"

#include <string>
#include <vector>

#include "common/unique_resource.h"
#include "command_ids.h"
#include "finch.h"
#include "mainwnd/process_windows_rules.h"
#include "mainwnd/window_owner_cache.h"
#include "string_ids.h"

namespace lmvx {

namespace {

struct ProcessWindow {
    HWND window;
    std::wstring title;
};

WindowOwner AskWindowOwner(HWND window) {
    WindowOwner owner;
    owner.threadId = GetWindowThreadProcessId(window, &owner.processId);
    return owner;
}

// The qualifying windows in z-order.
std::vector<ProcessWindow> ListProcessWindows(unsigned pid) {
    static WindowOwnerCache ownerCache;
    std::vector<ProcessWindow> windows;
    const std::vector<HWND> topLevel = TopLevelWindowsInZOrder();
    const std::vector<WindowOwner> owners = ownerCache.OwnersOf(topLevel, AskWindowOwner);
    // Starts at the second window in z-order: the topmost window is never considered. Intended.
    for (size_t i = 1; i < topLevel.size(); ++i) {
        const HWND window = topLevel[i];
        const DWORD windowProcessId = owners[i].processId;
        const DWORD windowThreadId = owners[i].threadId;
        if (windowProcessId != pid || !IsWindowVisible(window)) continue;
        std::wstring title = ReadWindowTitle(window, windowProcessId, windowThreadId);
        if (QualifiesAsProcessWindow(true, windowProcessId, pid, title.size())) {
            windows.push_back({window, std::move(title)});
        }
    }
    return windows;
}

// Menu items carry the window handle as their command id; only its low 32 bits fit, so the chosen id is
// matched back against the list rather than turned into a handle.
UINT WindowCommandId(HWND window) {
    return static_cast<UINT>(reinterpret_cast<UINT_PTR>(window));
}

HWND ChooseFromWindowMenu(const std::vector<ProcessWindow>& windows, POINT position, HWND owner) {
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return nullptr;
    for (const ProcessWindow& entry : windows) {
        AppendMenuW(menu.Get(), MF_STRING, WindowCommandId(entry.window), entry.title.c_str());
    }
    if (windows.empty()) {
        AppendMenuW(menu.Get(), MF_STRING | MF_GRAYED, IDM_NO_OPEN_WINDOW,
                    UIL_LangModule.GetLangString(IDS_NO_OPEN_WINDOW));
    }
    SetMenuDefaultItem(menu.Get(), IDM_NO_OPEN_WINDOW, FALSE);
    const UINT chosen = static_cast<UINT>(
        TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_RECURSE, position.x, position.y, 0, owner, nullptr));
    if (chosen == 0 || chosen == IDM_NO_OPEN_WINDOW) return nullptr;
    for (const ProcessWindow& entry : windows) {
        if (WindowCommandId(entry.window) == chosen) return entry.window;
    }
    return nullptr;
}

POINT CursorPosition() {
    POINT cursor = {};
    GetCursorPos(&cursor);
    return cursor;
}

}  // namespace

int CountProcessWindows(unsigned pid) {
    return static_cast<int>(ListProcessWindows(pid).size());
}

int BringProcessWindowToFront(unsigned pid, int x, int y, HWND owner) {
    const std::vector<ProcessWindow> windows = ListProcessWindows(pid);
    if (windows.size() == 1) {
        OpenIcon(windows.front().window);
        ShowWindow(windows.front().window, SW_SHOW);
        BringWindowToTop(windows.front().window);
        return 1;
    }
    const HWND chosen = ChooseFromWindowMenu(windows, WindowMenuPosition(x, y, CursorPosition()), owner);
    if (chosen == nullptr) return 0;
    ShowWindow(chosen, SW_SHOW);
    OpenIcon(chosen);
    BringWindowToTop(chosen);
    return 1;
}

int CloseProcessWindow(unsigned pid, HWND owner) {
    const std::vector<ProcessWindow> windows = ListProcessWindows(pid);
    if (windows.size() == 1) return PostMessageW(windows.front().window, WM_CLOSE, 0, 0);
    const HWND chosen = ChooseFromWindowMenu(windows, CursorPosition(), owner);
    return chosen != nullptr ? PostMessageW(chosen, WM_CLOSE, 0, 0) : 0;
}

}  // namespace lmvx
