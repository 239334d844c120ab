// Runs the real main window (dialog 129 with the program's own dialog procedure) inside the test program,
// with the real process-data provider, so that menus, which are private to their process, can be read.
#pragma once
#include <windows.h>

#include <functional>
#include <string>

#include "message_pump.h"
#include <vector>

namespace mainwnd_test {

// The application registered under its own name (its settings removed afterwards), the language module
// and shared icons on the test program's resources, and the provider initialised.
class ScopedHostedProgram {
public:
    explicit ScopedHostedProgram(const wchar_t* name);
    ~ScopedHostedProgram();
    ScopedHostedProgram(const ScopedHostedProgram&) = delete;
    ScopedHostedProgram& operator=(const ScopedHostedProgram&) = delete;

private:
    std::wstring applicationKey_;
};

using lmvx_test::PumpUntil;

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

// One item of a menu as the user sees it.
struct SeenItem {
    UINT id = 0;              // command id; 0 for separators and popups
    std::wstring text;
    bool separator = false;
    bool grayed = false;
    bool checked = false;
    bool isDefault = false;
    std::vector<SeenItem> submenu;
};

std::vector<SeenItem> ReadMenu(HMENU menu);

// Sends the list's right-click notification to the main window and returns the menu it showed, read
// while it was open and then closed without a choice.
std::vector<SeenItem> RightClickMenu(HWND mainWindow, HWND list);

}  // namespace mainwnd_test
