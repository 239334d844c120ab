// What the window tests of the process list share: an application registered with the runtime library
// (its option key removed afterwards), the language module on this program's resources, and a top-level
// window with the main menu and a report list view as control 5001.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

#include "message_pump.h"

namespace proclist_test {

// Registers the test application under its own name and loads the English resources of this program.
class ScopedTestApplication {
public:
    explicit ScopedTestApplication(const wchar_t* name);
    ~ScopedTestApplication();
    ScopedTestApplication(const ScopedTestApplication&) = delete;
    ScopedTestApplication& operator=(const ScopedTestApplication&) = delete;

private:
    std::wstring applicationKey_;
};

// Handlers the test window passes its messages to; either may be null.
struct WindowHandlers {
    virtual ~WindowHandlers() = default;
    virtual void OnUser(WPARAM) {}
    virtual void OnTimer(UINT_PTR) {}
};

// A top-level window holding the main menu (template 131) and a report list view with id 5001.
class TestMainWindow {
public:
    explicit TestMainWindow(bool visible);
    ~TestMainWindow();
    TestMainWindow(const TestMainWindow&) = delete;
    TestMainWindow& operator=(const TestMainWindow&) = delete;

    HWND Get() const { return window_; }
    HWND List() const { return list_; }
    void SetHandlers(WindowHandlers* handlers);
    void Destroy();

private:
    HWND window_ = nullptr;
    HWND list_ = nullptr;
};

using lmvx_test::PumpUntil;

// Row helpers over a list view.
int RowOfPid(HWND list, unsigned pid);
unsigned PidOfRow(HWND list, int row);
std::vector<unsigned> PidsInRowOrder(HWND list);
std::wstring CellText(HWND list, int row, int column);
int RowIndent(HWND list, int row);
int RowImage(HWND list, int row);

// The checked command of a popup, or 0.
std::vector<UINT> CheckedCommands(HMENU popup);
HMENU SortMenuOf(HWND window);
HMENU RateMenuOf(HWND window);

}  // namespace proclist_test
