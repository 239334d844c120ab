// Counting, raising and closing the titled windows of a child process, and the windows of this process on
// other threads, one of which hangs.
#include "mainwnd/process_windows.h"

#include <gtest/gtest.h>

#include <thread>

#include "action_test_environment.h"
#include "command_ids.h"
#include "string_ids.h"

namespace {

constexpr DWORD kWaitMs = 10000;

using actions_test::MenuAnswerer;
using lmvx_test::SeenItem;
using actions_test::WindowChild;

class ProcessWindows : public testing::Test {
protected:
    static void SetUpTestSuite() { actions_test::StartTestApplication(); }

    // The walk skips the topmost window, so the test's own hidden window goes on top of the child's.
    void PutOwnerOnTop() {
        SetWindowPos(owner_.Get(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        ASSERT_EQ(owner_.Get(), GetWindow(GetDesktopWindow(), GW_CHILD));
    }

    const lmvx::UniqueWindow owner_ = actions_test::HiddenOwner();
};

// True when first lies above second in z-order.
bool IsAbove(HWND first, HWND second) {
    for (HWND window = GetWindow(GetDesktopWindow(), GW_CHILD); window; window = GetWindow(window, GW_HWNDNEXT)) {
        if (window == first) return true;
        if (window == second) return false;
    }
    return false;
}

// A window without a title does not count; without a counted window the menu says so.
TEST_F(ProcessWindows, AWindowWithoutTitleDoesNotCountAndTheMenuSaysSo) {
    WindowChild child({L""});
    ASSERT_EQ(1u, actions_test::VisibleWindowsOf(child.Pid()).size());
    PutOwnerOnTop();
    EXPECT_EQ(0, lmvx::CountProcessWindows(child.Pid()));
    MenuAnswerer menu(L"");
    EXPECT_EQ(0, lmvx::BringProcessWindowToFront(child.Pid(), 100, 100, owner_.Get()));
    const std::vector<SeenItem> items = menu.Finish();
    ASSERT_EQ(1u, items.size());
    EXPECT_EQ(static_cast<UINT>(IDM_NO_OPEN_WINDOW), items[0].id);
    EXPECT_EQ(actions_test::Text(IDS_NO_OPEN_WINDOW), items[0].text);
    EXPECT_TRUE(items[0].grayed);
    EXPECT_TRUE(items[0].isDefault);

    MenuAnswerer closeMenu(L"");
    EXPECT_EQ(0, lmvx::CloseProcessWindow(child.Pid(), owner_.Get()));
    EXPECT_EQ(1u, closeMenu.Finish().size());
}

// The walk skips the topmost window (intended: it starts at the second window in z-order).
TEST_F(ProcessWindows, OneTitledWindowIsRestoredRaisedAndAskedToCloseWithoutAMenuUnlessTopmost) {
    WindowChild child({L"Lumivex one window"}, true);
    const HWND window = child.WindowTitled(L"Lumivex one window");
    ASSERT_NE(nullptr, window);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return IsIconic(window) != FALSE; }, kWaitMs));
    PutOwnerOnTop();
    EXPECT_EQ(1, lmvx::CountProcessWindows(child.Pid()));

    MenuAnswerer menu(L"");
    EXPECT_EQ(1, lmvx::BringProcessWindowToFront(child.Pid(), 0, 0, owner_.Get()));
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsIconic(window); }, kWaitMs));
    EXPECT_TRUE(IsAbove(window, owner_.Get()));
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return GetWindow(GetDesktopWindow(), GW_CHILD) == window; }, kWaitMs));
    EXPECT_EQ(0, lmvx::CountProcessWindows(child.Pid()));
    PutOwnerOnTop();
    EXPECT_NE(0, lmvx::CloseProcessWindow(child.Pid(), owner_.Get()));
    EXPECT_FALSE(menu.MenuWasShown());
    EXPECT_EQ(1, child.WaitForExitCode(20000)) << "the child counts the close requests it received";
}

// Two windows are offered in z-order; no choice does nothing, the chosen one is raised or closed.
TEST_F(ProcessWindows, OfTwoWindowsOnlyTheChosenOneIsRaisedOrClosed) {
    WindowChild child({L"Lumivex window A", L"Lumivex window B"});
    const HWND first = child.WindowTitled(L"Lumivex window A");
    const HWND second = child.WindowTitled(L"Lumivex window B");
    ASSERT_NE(nullptr, first);
    ASSERT_NE(nullptr, second);
    SetWindowPos(first, second, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return IsAbove(second, first); }, kWaitMs));
    PutOwnerOnTop();
    EXPECT_EQ(2, lmvx::CountProcessWindows(child.Pid()));
    {
        MenuAnswerer menu(L"");
        EXPECT_EQ(0, lmvx::CloseProcessWindow(child.Pid(), owner_.Get()));
        const std::vector<SeenItem> items = menu.Finish();
        ASSERT_EQ(2u, items.size());
        EXPECT_EQ(L"Lumivex window B", items[0].text);
        EXPECT_EQ(L"Lumivex window A", items[1].text);
        EXPECT_FALSE(items[0].grayed);
        EXPECT_EQ(2u, actions_test::VisibleWindowsOf(child.Pid()).size());
    }
    {
        MenuAnswerer menu(L"Lumivex window A");
        EXPECT_EQ(1, lmvx::BringProcessWindowToFront(child.Pid(), 50, 50, owner_.Get()));
        EXPECT_TRUE(menu.MenuWasShown());
        EXPECT_TRUE(lmvx_test::PumpUntil([&] { return IsAbove(first, second); }, kWaitMs));
    }
    PutOwnerOnTop();
    MenuAnswerer menu(L"Lumivex window B");
    EXPECT_NE(0, lmvx::CloseProcessWindow(child.Pid(), owner_.Get()));
    EXPECT_TRUE(menu.MenuWasShown());
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(second); }, kWaitMs));
    EXPECT_TRUE(IsWindow(first));
    EXPECT_EQ(1, lmvx::CountProcessWindows(child.Pid()));
}

// A thread of this process with one visible titled window; it either answers messages or hangs until the
// object goes.
class WindowThread {
public:
    WindowThread(const wchar_t* title, bool hangs) : thread_([this, title, hangs] {
        window_ = CreateWindowExW(0, L"STATIC", title, WS_POPUP | WS_VISIBLE, 0, 0, 60, 30, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        SetEvent(ready_.Get());
        const HANDLE release = release_.Get();
        while (MsgWaitForMultipleObjects(1, &release, FALSE, INFINITE, hangs ? 0 : QS_ALLINPUT) != WAIT_OBJECT_0) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        }
        DestroyWindow(window_);
    }) {
        WaitForSingleObject(ready_.Get(), 10000);
    }
    ~WindowThread() {
        SetEvent(release_.Get());
        thread_.join();
    }
    HWND Window() const { return window_; }

private:
    lmvx::UniqueHandle ready_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    lmvx::UniqueHandle release_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    HWND window_ = nullptr;
    std::thread thread_;
};

TEST_F(ProcessWindows, AHungWindowOfThisProgramIsSkippedAndTheOthersCount) {
    const int before = lmvx::CountProcessWindows(GetCurrentProcessId());
    WindowThread answering(L"Lumivex answering window", false);
    WindowThread hung(L"Lumivex hung window", true);
    const HWND ownThreadWindow = CreateWindowExW(0, L"STATIC", L"Lumivex own thread window", WS_POPUP | WS_VISIBLE,
                                                 0, 0, 60, 30, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(nullptr, answering.Window());
    ASSERT_NE(nullptr, hung.Window());
    PutOwnerOnTop();
    // The answering window and this thread's own window count; the hung one is given up after its time-out.
    EXPECT_EQ(before + 2, lmvx::CountProcessWindows(GetCurrentProcessId()));
    DestroyWindow(ownThreadWindow);
}

}  // namespace
