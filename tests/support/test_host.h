// What the window tests of the program share: a registered application with the language module on this
// test program's resources (the program's own), a top-level window with the main menu and a report list
// view as control 5001, reading rows and menus back, and finding the windows a test provokes.
#pragma once
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "message_pump.h"
#include "registered_application.h"
#include "test_files.h"

namespace lmvx_test {

// The registered application, the language module in the given language and the common controls.
class ScopedTestApplication {
public:
    explicit ScopedTestApplication(const wchar_t* name, LANGID language = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
    ScopedTestApplication(const ScopedTestApplication&) = delete;
    ScopedTestApplication& operator=(const ScopedTestApplication&) = delete;

private:
    ScopedRegisteredApplication registration_;
};

// Handlers the test window passes its messages to.
struct WindowHandlers {
    virtual ~WindowHandlers() = default;
    virtual void OnUser(WPARAM) {}
    virtual void OnTimer(UINT_PTR) {}
};

// A top-level window holding the main menu (template 131) and a report list view with id 5001 that fills it.
class TestMainWindow {
public:
    explicit TestMainWindow(bool visible = false);
    ~TestMainWindow();
    TestMainWindow(const TestMainWindow&) = delete;
    TestMainWindow& operator=(const TestMainWindow&) = delete;

    HWND Get() const { return window_; }
    HWND List() const { return list_; }
    void SetHandlers(WindowHandlers* handlers);
    void Destroy();
    // A row with the PID as item data, added at the end; selecting focuses it too.
    void AddRow(unsigned pid, const wchar_t* text);
    void SelectRow(unsigned pid);

private:
    HWND window_ = nullptr;
    HWND list_ = nullptr;
};

// Row helpers over a list view whose rows carry PIDs as item data.
int RowOfPid(HWND list, unsigned pid);
unsigned PidOfRow(HWND list, int row);
std::vector<unsigned> PidsInRowOrder(HWND list);
std::wstring CellText(HWND list, int row, int column);
int RowIndent(HWND list, int row);
int RowImage(HWND list, int row);

// One item of a menu as the user sees it.
struct SeenItem {
    UINT id = 0;   // command id; 0 for separators and popups
    std::wstring text;
    bool separator = false;
    bool grayed = false;
    bool checked = false;
    bool isDefault = false;
    std::vector<SeenItem> submenu;
};
std::vector<SeenItem> ReadMenu(HMENU menu);
// The commands of a popup that carry a check mark.
std::vector<UINT> CheckedCommands(HMENU popup);
HMENU SortMenuOf(HWND window);
HMENU RateMenuOf(HWND window);

// A visible top-level window of this process with this caption, other than except; null when none.
HWND FindOwnWindow(const std::wstring& caption, HWND except = nullptr);
// All texts of a window's children, joined by line breaks.
std::wstring ChildTexts(HWND window);
// Waits up to limitMs for a window of this process with the caption (other than except) on another thread,
// hands it to act, and returns whether one was found.
bool WaitForOwnWindow(const std::wstring& caption, DWORD limitMs, const std::function<void(HWND)>& act,
                      HWND except = nullptr);

}  // namespace lmvx_test
