// The test child in its "windows" verb: one top-level window per title, shown before the constructor returns.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

#include "child_process.h"
#include "message_pump.h"

namespace actions_test {

// The visible top-level windows of a process, in z-order.
inline std::vector<HWND> VisibleWindowsOf(DWORD pid) {
    struct Search {
        DWORD pid;
        std::vector<HWND> windows;
    } search{pid, {}};
    EnumWindows(
        [](HWND window, LPARAM context) -> BOOL {
            auto* search = reinterpret_cast<Search*>(context);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == search->pid && IsWindowVisible(window)) search->windows.push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.windows;
}

inline std::wstring WindowsVerb(const std::vector<std::wstring>& titles, bool firstMinimized) {
    std::wstring arguments = firstMinimized ? L"windows --minimized" : L"windows";
    for (const std::wstring& title : titles) arguments += L" \"" + title + L"\"";
    return arguments;
}

class WindowChild {
public:
    // titles: one window each, "" for a window without a title; the first is minimised when asked.
    explicit WindowChild(const std::vector<std::wstring>& titles, bool firstMinimized = false)
        : child_(WindowsVerb(titles, firstMinimized)) {
        lmvx_test::PumpUntil([&] { return !child_.Started() || VisibleWindowsOf(Pid()).size() >= titles.size(); },
                             10000);
    }

    bool Started() const { return child_.Started(); }
    DWORD Pid() const { return child_.Pid(); }
    // The child's visible top-level window with this title (null when there is none).
    HWND WindowTitled(const std::wstring& title) const {
        for (HWND window : VisibleWindowsOf(Pid())) {
            wchar_t text[256] = {};
            GetWindowTextW(window, text, 256);
            if (title == text) return window;
        }
        return nullptr;
    }
    // Waits for the child to end; its exit code is the number of windows it was asked to close, or -1.
    int WaitForExitCode(DWORD milliseconds) const {
        DWORD exitCode = 0;
        if (!child_.WaitForExit(milliseconds) || !GetExitCodeProcess(child_.Handle(), &exitCode)) return -1;
        return static_cast<int>(exitCode);
    }

private:
    lmvx_test::ChildProcess child_;
};

}  // namespace actions_test
