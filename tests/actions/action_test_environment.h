// What the window tests of the process actions share: the program's English resources in the language
// module, the program's provider with a fresh snapshot, a hidden window to own dialogs and menus, a thread
// that answers the popup menu this process shows, and a test child with titled windows.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

#include "child_process.h"
#include "common/unique_resource.h"
#include "dialog_answerer.h"
#include "test_host.h"

namespace actions_test {

// Loads the language module from this test program's resources (the program's own) and starts the provider.
void StartTestApplication();
// A new snapshot, so that processes started since the last one are in it.
void RefreshProvider();
// The display or company name the provider gives the process, "" when it is not in the snapshot.
std::wstring ProviderName(unsigned pid, bool company = false);
// A text of the language module in the current language.
std::wstring Text(unsigned id);
lmvx::UniqueWindow HiddenOwner();

// Answers the popup menu this process shows: notes its items, then picks the item with the given text by the
// keyboard, or closes the menu with Escape when choose is "" or names no item.
class MenuAnswerer {
public:
    explicit MenuAnswerer(std::wstring choose) : choose_(std::move(choose)) {}
    // Stops watching; the items of the menu that was shown, or none when no menu appeared.
    std::vector<lmvx_test::SeenItem> Finish() { thread_.Finish(); return items_; }
    bool MenuWasShown() { thread_.Finish(); return shown_; }

private:
    bool Answer();

    const std::wstring choose_;
    bool shown_ = false;
    std::vector<lmvx_test::SeenItem> items_;
    PollingThread thread_{[this] { return Answer(); }};
};

// The test child in its "windows" verb: one top-level window per title ("" for none), the first minimised
// when asked, all shown before the constructor returns.
class WindowChild {
public:
    explicit WindowChild(const std::vector<std::wstring>& titles, bool firstMinimized = false);
    DWORD Pid() const { return child_.Pid(); }
    // The child's visible top-level window with this title (null when there is none).
    HWND WindowTitled(const std::wstring& title) const;
    // Waits for the child to end; its exit code is the number of windows it was asked to close, or -1.
    int WaitForExitCode(DWORD milliseconds) const;

private:
    lmvx_test::ChildProcess child_;
};

}  // namespace actions_test
