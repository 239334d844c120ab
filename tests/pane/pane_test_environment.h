// What the window tests of the pane, toolbar and Run dialog share: an application registered under its own
// name (its settings removed afterwards), the language module and the shared icons on this program's
// resources, a host window with a process list, and finding the boxes a test provokes.
#pragma once
#include <windows.h>

#include <functional>
#include <string>

#include "message_pump.h"

namespace pane_test {

class ScopedTestApplication {
public:
    ScopedTestApplication(const wchar_t* name, LANGID language);
    ~ScopedTestApplication();
    ScopedTestApplication(const ScopedTestApplication&) = delete;
    ScopedTestApplication& operator=(const ScopedTestApplication&) = delete;

private:
    std::wstring applicationKey_;
};

// A top-level window with a report list view (control 5001) whose rows carry PIDs as item data.
class HostWindow {
public:
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    HWND Get() const { return window_; }
    HWND List() const { return list_; }
    void AddRow(unsigned pid, const wchar_t* text);
    void SelectRow(unsigned pid);

private:
    HWND window_ = nullptr;
    HWND list_ = nullptr;
};

using lmvx_test::PumpUntil;

// A visible top-level window of this process with this caption, other than except; null when none.
HWND FindOwnWindow(const std::wstring& caption, HWND except = nullptr);
// All texts of a window's children, joined by line breaks.
std::wstring ChildTexts(HWND window);

// Waits up to limitMs for a window of this process with the caption (other than except) on another thread,
// hands it to act, and returns whether one was found.
bool WaitForOwnWindow(const std::wstring& caption, DWORD limitMs, const std::function<void(HWND)>& act,
                      HWND except = nullptr);

// A folder inside the test prefix for files the tests write.
std::wstring TestTempFolder();
std::wstring ReadWholeFile(const std::wstring& path);

}  // namespace pane_test
