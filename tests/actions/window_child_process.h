// Starts lmvx_window_child.exe (beside the test program) with one top-level window per title, waits until
// they are shown, and ends the child when the object goes out of scope.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace actions_test {

class WindowChild {
public:
    // titles: one window each, "" for a window without a title; the first is minimised when asked.
    explicit WindowChild(const std::vector<std::wstring>& titles, bool firstMinimized = false);
    ~WindowChild();
    WindowChild(const WindowChild&) = delete;
    WindowChild& operator=(const WindowChild&) = delete;

    bool Started() const { return process_ != nullptr; }
    DWORD Pid() const { return pid_; }
    // The child's visible top-level window with this title (null when there is none).
    HWND WindowTitled(const std::wstring& title) const;
    // Waits for the child to end; its exit code is the number of windows it was asked to close, or -1.
    int WaitForExitCode(DWORD milliseconds) const;

private:
    HANDLE process_ = nullptr;
    DWORD pid_ = 0;
};

// The visible top-level windows of a process, in z-order.
std::vector<HWND> VisibleWindowsOf(DWORD pid);

}  // namespace actions_test
