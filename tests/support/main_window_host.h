// Runs the real main window (dialog 129 with the program's own dialog procedure) inside the test program,
// with the real process-data provider, so that menus, which are private to their process, can be read.
#pragma once
#include <windows.h>

#include <vector>

#include "test_host.h"

namespace lmvx_test {

// The test application plus the shared icons and the provider initialised, as start-up leaves them.
class ScopedHostedProgram {
public:
    explicit ScopedHostedProgram(const wchar_t* name);
    ~ScopedHostedProgram();
    ScopedHostedProgram(const ScopedHostedProgram&) = delete;
    ScopedHostedProgram& operator=(const ScopedHostedProgram&) = delete;

private:
    ScopedTestApplication application_;
};

// The main window, modeless on this thread; destroyed (and its refresh thread ended) with the object.
class HostedMainWindow {
public:
    HostedMainWindow();
    ~HostedMainWindow();
    HostedMainWindow(const HostedMainWindow&) = delete;
    HostedMainWindow& operator=(const HostedMainWindow&) = delete;

    HWND Get() const { return window_; }
    HWND List() const;
    // Waits until the list shows the process, then selects its row.
    bool SelectProcess(unsigned pid, DWORD limitMs);

private:
    HWND window_ = nullptr;
};

// Sends the list's right-click notification to the main window and returns the menu it showed, read
// while it was open and then closed without a choice.
std::vector<SeenItem> RightClickMenu(HWND mainWindow, HWND list);

}  // namespace lmvx_test
