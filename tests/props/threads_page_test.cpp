// The Threads page, its panes, its actions and the call stack dialog, on a child with known threads.
#include <windows.h>
#include <aclapi.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "dialog_answerer.h"
#include "known_threads.h"
#include "message_pump.h"
#include "props/call_stack_dialog.h"
#include "props/threads_page.h"
#include "props_window_environment.h"
#include "resource.h"
#include "test_host.h"
#include "window_texts.h"

namespace {

using lmvx_test::KnownThreads;
using lmvx_test::PumpUntil;
using lmvx_test::WindowText;
using lmvx_test::CellText;
using props_test::FindRowWithText;
using props_test::HostedPage;

class ThreadsPageTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        props_test::SetUpApplication(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
        child_ = new KnownThreads(KnownThreads::Start());
    }
    static void TearDownTestSuite() {
        delete child_;
        child_ = nullptr;
    }
    void SetUp() override { ASSERT_TRUE(child_->Started()); }

    static HWND ThreadList(HWND page) { return GetDlgItem(page, IDC_THREADS_LIST); }
    static HWND Pane(HWND page, int id) { return GetDlgItem(page, id); }
    static int RowOf(HWND page, DWORD threadId) { return lmvx_test::RowOfPid(ThreadList(page), threadId); }
    // Waits for the thread's row and selects it; false when it never came.
    static bool SelectThread(HWND page, DWORD threadId) {
        const std::wstring id = std::to_wstring(threadId);
        int row = -1;
        if (!PumpUntil([&] { return (row = RowOf(page, threadId)) >= 0; }, 10000)) return false;
        props_test::SelectRow(ThreadList(page), row);
        return PumpUntil([&] { return WindowText(GetDlgItem(Pane(page, IDC_THREADS_PANE_PERFORMANCE), IDC_THREAD_ID_TEXT)) == id; },
                         10000);
    }

    // Dispatches this thread's messages until the page's refresh timer has ticked that often.
    static bool PumpTimerTicks(HWND page, int ticks) {
        const DWORD start = GetTickCount();
        while (ticks > 0 && GetTickCount() - start < 10000) {
            MSG message;
            while (ticks > 0 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                DispatchMessageW(&message);
                if (message.message == WM_TIMER && message.hwnd == page && message.wParam == 4000) --ticks;
            }
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        }
        return ticks == 0;
    }

    static KnownThreads* child_;
};

KnownThreads* ThreadsPageTest::child_ = nullptr;

// Reads the call stack dialog's rows from another thread while the page's thread waits in the command, then
// closes it.
std::vector<std::wstring> ReadCallStackDialog(DWORD threadId) {
    std::vector<std::wstring> rows;
    lmvx_test::WaitForOwnWindow(L"Call Stack for Thread " + std::to_wstring(threadId), 30000, [&](HWND dialog) {
        HWND list = GetDlgItem(dialog, IDC_CALL_STACK_LIST);
        for (int i = 0; i < 3000 && ListView_GetItemCount(list) == 0; ++i) Sleep(10);
        for (int row = 0; row < ListView_GetItemCount(list); ++row) rows.push_back(CellText(list, row, 0));
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    return rows;
}

TEST_F(ThreadsPageTest, ListsTheThreadsAndShowsTheSelectedOnesDetailsAndCallStack) {
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, child_->child->Pid());
    HWND list = ThreadList(host.Page());
    EXPECT_TRUE(PumpUntil([&] {
        const int row = RowOf(host.Page(), child_->burning);
        return row >= 0 && !CellText(list, row, 1).empty();
    }, 20000)) << "the burning thread shows its CPU usage";
    const int blockedRow = RowOf(host.Page(), child_->blocked);
    ASSERT_GE(blockedRow, 0);
    EXPECT_EQ(0u, CellText(list, blockedRow, 2).find(L"lmvx_test_child.exe+0x"));

    ASSERT_TRUE(SelectThread(host.Page(), child_->blocked));
    HWND module = Pane(host.Page(), IDC_THREADS_PANE_MODULE);
    EXPECT_EQ(L"lmvx_test_child.exe", WindowText(GetDlgItem(module, IDC_THREAD_MODULE_NAME)));
    EXPECT_NE(std::wstring::npos, WindowText(GetDlgItem(module, IDC_THREAD_LAST_ERROR)).find(L"(2)"));
    HWND performance = Pane(host.Page(), IDC_THREADS_PANE_PERFORMANCE);
    EXPECT_EQ(L"Normal", WindowText(GetDlgItem(performance, IDC_THREAD_PRIORITY)));
    EXPECT_EQ(0u, WindowText(GetDlgItem(performance, IDC_THREAD_START_TIME)).find(L"Today, "));
    EXPECT_EQ(L"Suspend Thread", WindowText(GetDlgItem(performance, IDM_THREAD_SUSPEND_RESUME)));
    // The call stack dialog of the blocked thread holds the child's function, not the innermost frame.
    std::vector<std::wstring> rows;
    std::thread reader([&] { rows = ReadCallStackDialog(child_->blocked); });
    SendMessageW(host.Page(), WM_COMMAND, IDM_THREAD_CALL_STACK, 0);   // returns when the dialog has ended
    reader.join();
    ASSERT_FALSE(rows.empty());
    bool childFunction = false;
    for (const std::wstring& row : rows) childFunction |= row.find(L"BlockedInChildWait") != std::wstring::npos;
    EXPECT_TRUE(childFunction);
    EXPECT_EQ(std::wstring::npos, rows.front().find(L"ntdll")) << "the innermost frame is not listed";
    EXPECT_FALSE(kestrel::PRM_IsThreadSuspended(child_->blocked));

    ASSERT_TRUE(SelectThread(host.Page(), child_->windowed));
    HWND windows = GetDlgItem(Pane(host.Page(), IDC_THREADS_PANE_WINDOWS), IDC_THREAD_WINDOW_LIST);
    EXPECT_TRUE(PumpUntil([&] { return FindRowWithText(windows, 0, L"Lumivex test thread window") >= 0; }, 10000));
    SendMessageW(host.Page(), WM_COMMAND, IDC_THREADS_SHOW_WINDOWS, 0);
    EXPECT_TRUE(IsWindowVisible(windows));
    EXPECT_FALSE(IsWindowVisible(performance));
}

// A thread of this process that waits until it is ended; the page lists it like any other.
struct Worker {
    explicit Worker(bool suspended) {
        thread = CreateThread(nullptr, 0, [](void* go) -> DWORD { return WaitForSingleObject(go, INFINITE); }, go,
                              suspended ? CREATE_SUSPENDED : 0, &id);
    }
    ~Worker() {
        End();
        CloseHandle(thread);
        CloseHandle(go);
    }
    void End() {
        SetEvent(go);
        ResumeThread(thread);
        WaitForSingleObject(thread, 10000);
    }
    HANDLE go = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread = nullptr;
    DWORD id = 0;
};

// Reads the pop-up menu that the page shows and closes it unchosen: the page owns the menu, so it is told when
// the menu opens and when the menu waits for input.
struct PopupMenuReader {
    explicit PopupMenuReader(HWND page) : page(page) {
        reader = this;
        previous = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Proc)));
    }
    ~PopupMenuReader() { SetWindowLongPtrW(page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous)); }
    static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITMENUPOPUP) {
            for (const lmvx_test::SeenItem& item : lmvx_test::ReadMenu(reinterpret_cast<HMENU>(wParam))) {
                reader->ids.push_back(item.id);
                reader->items[item.id] = item;
            }
        }
        if (message == WM_ENTERIDLE && wParam == MSGF_MENU) EndMenu();
        return CallWindowProcW(reader->previous, window, message, wParam, lParam);
    }
    static inline PopupMenuReader* reader = nullptr;
    HWND page;
    WNDPROC previous = nullptr;
    std::vector<UINT> ids;   // in menu order, 0 for a separator
    std::map<UINT, lmvx_test::SeenItem> items;
};

enum class Target { Running, Suspended, Ended, PagesOwnThread, InAProcessThatCannotBeOpened };

// While it lives, this process's own security denies every access to it.
class ProcessAccessDenied {
public:
    ProcessAccessDenied() {
        GetSecurityInfo(GetCurrentProcess(), SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &previous_,
                        nullptr, &descriptor_);
        InitializeAcl(&empty_, sizeof empty_, ACL_REVISION);
        SetSecurityInfo(GetCurrentProcess(), SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &empty_, nullptr);
    }
    ~ProcessAccessDenied() {
        SetSecurityInfo(GetCurrentProcess(), SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, previous_, nullptr);
        LocalFree(descriptor_);
    }

private:
    PACL previous_ = nullptr;
    PSECURITY_DESCRIPTOR descriptor_ = nullptr;
    ACL empty_{};
};

// The texts of the boxes that the command showed, the call stack dialog itself left out.
std::vector<std::wstring> BoxTexts(const actions_test::DialogAnswerer& answerer) {
    std::vector<std::wstring> texts;
    for (const auto& box : answerer.Seen()) {
        if (box.caption.find(L"Call Stack for Thread") == std::wstring::npos) texts.push_back(box.caption + L"\n" + box.AllText());
    }
    return texts;
}

TEST_F(ThreadsPageTest, ThreadMenuAndActionsAskTellWhyTheyFailedAndTheRowOfAnEndedThreadGoes) {
    const struct {
        const char* what;
        Target target;
        int command;
        std::vector<const wchar_t*> boxes;   // a text of each box shown, in order
        int suspendedAfter;                  // -1: not asked
        bool rowGoes;
    } cases[] = {
        {"suspend asks first", Target::Running, IDM_THREAD_SUSPEND_RESUME, {L"Are you sure?"}, 1, false},
        {"resume does not ask", Target::Suspended, IDM_THREAD_SUSPEND_RESUME, {}, 0, false},
        {"the page's own thread", Target::PagesOwnThread, IDM_THREAD_SUSPEND_RESUME,
         {L"Are you sure?", L"could not suspend the thread"}, 0, false},
        {"suspend an ended thread", Target::Ended, IDM_THREAD_SUSPEND_RESUME,
         {L"Are you sure?", L"could not suspend the thread"}, -1, true},
        {"terminate an ended thread", Target::Ended, IDM_THREAD_TERMINATE,
         {L"Are you sure?", L"could not terminate the thread"}, -1, true},
        {"call stack of an ended thread", Target::Ended, IDM_THREAD_CALL_STACK,
         {L"Lumivex could not find the specified thread."}, -1, true},
        {"call stack in a process that cannot be opened", Target::InAProcessThatCannotBeOpened, IDM_THREAD_CALL_STACK,
         {L"Lumivex was denied the right to access the thread."}, -1, false},
        {"terminate", Target::Running, IDM_THREAD_TERMINATE, {L"Terminate Thread\n"}, -1, true},
    };
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, GetCurrentProcessId());
    HWND performance = Pane(host.Page(), IDC_THREADS_PANE_PERFORMANCE);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Worker worker(c.target == Target::Suspended);
        const DWORD threadId = c.target == Target::PagesOwnThread ? GetCurrentThreadId() : worker.id;
        ASSERT_TRUE(SelectThread(host.Page(), threadId));
        {   // the thread's menu, before the command: suspend is greyed only for the page's own thread
            PopupMenuReader menu(host.Page());
            props_test::Notify(ThreadList(host.Page()), NM_RCLICK);
            const std::vector<UINT> ids = {IDM_THREAD_CALL_STACK, 0, IDM_THREAD_TERMINATE, IDM_THREAD_SUSPEND_RESUME};
            EXPECT_EQ(ids, menu.ids);
            EXPECT_EQ(c.target == Target::Suspended ? L"Resume Thread" : L"Suspend Thread",
                      menu.items[IDM_THREAD_SUSPEND_RESUME].text);
            EXPECT_EQ(c.target == Target::PagesOwnThread, menu.items[IDM_THREAD_SUSPEND_RESUME].grayed);
        }
        if (c.target == Target::Ended) worker.End();
        std::vector<std::wstring> boxes;
        {
            actions_test::DialogAnswerer answerer(IDYES);
            std::optional<ProcessAccessDenied> denied;
            if (c.target == Target::InAProcessThatCannotBeOpened) denied.emplace();
            if (c.command == IDM_THREAD_CALL_STACK) {
                SendMessageW(host.Page(), WM_COMMAND, c.command, 0);
            } else {
                SendDlgItemMessageW(performance, c.command, BM_CLICK, 0, 0);   // the pane's buttons
            }
            boxes = BoxTexts(answerer);
        }
        ASSERT_EQ(c.boxes.size(), boxes.size());
        for (size_t i = 0; i < boxes.size(); ++i) EXPECT_NE(std::wstring::npos, boxes[i].find(c.boxes[i])) << boxes[i];
        if (c.suspendedAfter >= 0) {
            EXPECT_EQ(c.suspendedAfter == 1, kestrel::PRM_IsThreadSuspended(threadId) != 0);
            EXPECT_EQ(c.suspendedAfter == 1 ? L"Resume Thread" : L"Suspend Thread",
                      WindowText(GetDlgItem(performance, IDM_THREAD_SUSPEND_RESUME)));
        }
        if (c.rowGoes) {
            EXPECT_TRUE(PumpUntil([&] { return RowOf(host.Page(), threadId) < 0; }, 10000));
        } else {
            EXPECT_GE(RowOf(host.Page(), threadId), 0);
        }
        DWORD_PTR result = 0;
        EXPECT_TRUE(SendMessageTimeoutW(host.Page(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 5000, &result)) << "still answers";
    }
}

// The window commands act on the selected window, and the window menu greys what the window's state makes
// pointless; the last command closes it.
TEST_F(ThreadsPageTest, WindowCommandsActAndTheWindowMenuGreysByTheWindowsState) {
    lmvx_test::ChildProcess child(L"windows \"Lumivex menu window\"");
    HWND window = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (window = FindWindowW(nullptr, L"Lumivex menu window")) != nullptr; }, 10000));
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, child.Pid());
    ASSERT_TRUE(SelectThread(host.Page(), GetWindowThreadProcessId(window, nullptr)));
    HWND windowsPane = Pane(host.Page(), IDC_THREADS_PANE_WINDOWS);
    HWND windows = GetDlgItem(windowsPane, IDC_THREAD_WINDOW_LIST);
    int row = -1;
    ASSERT_TRUE(PumpUntil([&] { return (row = FindRowWithText(windows, 0, L"Lumivex menu window")) >= 0; }, 10000));
    props_test::SelectRow(windows, row);
    const struct {
        unsigned command;   // 0: none, the window as it was made
        bool visible, minimised, maximised;
        bool hideGrey, restoreGrey, maximizeGrey, minimizeGrey;
    } cases[] = {
        {0, true, false, false, false, true, false, false},
        {IDM_WINDOW_MAXIMIZE, true, false, true, false, false, true, false},
        {IDM_WINDOW_MINIMIZE, true, true, false, false, false, false, true},
        {IDM_WINDOW_RESTORE, true, false, false, false, true, false, false},
        {IDM_WINDOW_HIDE, false, false, false, true, true, false, false},
        {IDM_WINDOW_BRING_TO_FRONT, true, false, false, false, true, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command);
        if (c.command) SendMessageW(host.Page(), WM_COMMAND, c.command, 0);
        EXPECT_TRUE(PumpUntil([&] {
            return (IsWindowVisible(window) != FALSE) == c.visible && (IsIconic(window) != FALSE) == c.minimised &&
                   (IsZoomed(window) != FALSE) == c.maximised;
        }, 5000));
        PopupMenuReader menu(host.Page());
        props_test::Notify(windows, NM_RCLICK);
        const std::vector<UINT> ids = {IDM_WINDOW_BRING_TO_FRONT, IDM_WINDOW_HIDE, 0, IDM_WINDOW_RESTORE,
                                       IDM_WINDOW_MAXIMIZE, IDM_WINDOW_MINIMIZE, 0, IDM_WINDOW_CLOSE};
        ASSERT_EQ(ids, menu.ids);
        EXPECT_EQ(c.hideGrey, menu.items[IDM_WINDOW_HIDE].grayed);
        EXPECT_EQ(c.restoreGrey, menu.items[IDM_WINDOW_RESTORE].grayed);
        EXPECT_EQ(c.maximizeGrey, menu.items[IDM_WINDOW_MAXIMIZE].grayed);
        EXPECT_EQ(c.minimizeGrey, menu.items[IDM_WINDOW_MINIMIZE].grayed);
    }
    SendMessageW(host.Page(), WM_COMMAND, IDM_WINDOW_CLOSE, 0);
    EXPECT_TRUE(child.WaitForExit(10000));
    DWORD closeRequests = 0;
    GetExitCodeProcess(child.Handle(), &closeRequests);
    EXPECT_EQ(1u, closeRequests);
}

// A thread with more top-level windows than the pane lists: the first 256 in z-order, the newest first.
TEST_F(ThreadsPageTest, TheWindowsPaneListsAtMost256WindowsInZOrder) {
    std::wstring arguments = L"windows";
    for (int i = 0; i < 300; ++i) arguments += L" \"Many " + std::to_wstring(1000 + i) + L"\"";
    lmvx_test::ChildProcess child(arguments);
    HWND newest = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (newest = FindWindowW(nullptr, L"Many 1299")) != nullptr; }, 20000));
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, child.Pid());
    ASSERT_TRUE(SelectThread(host.Page(), GetWindowThreadProcessId(newest, nullptr)));
    HWND windows = GetDlgItem(Pane(host.Page(), IDC_THREADS_PANE_WINDOWS), IDC_THREAD_WINDOW_LIST);
    ASSERT_TRUE(PumpUntil([&] { return ListView_GetItemCount(windows) >= 256; }, 20000));
    EXPECT_EQ(256, ListView_GetItemCount(windows));
    EXPECT_GE(FindRowWithText(windows, 0, L"Many 1299"), 0) << "the newest window is on top";
    EXPECT_LT(FindRowWithText(windows, 0, L"Many 1000"), 0) << "the oldest is beyond the first 256";
}

// While hidden the page does not query the thread list; the first tick after it is shown again brings it up
// to date.
TEST_F(ThreadsPageTest, AHiddenPageDoesNotQueryAndCatchesUpAtTheFirstTickWhenShown) {
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, GetCurrentProcessId());
    ASSERT_TRUE(SelectThread(host.Page(), GetCurrentThreadId()));
    ShowWindow(host.Page(), SW_HIDE);
    Worker worker(false);
    ASSERT_TRUE(PumpTimerTicks(host.Page(), 3));
    EXPECT_EQ(nullptr, host.Context().threadList.FindThread(worker.id)) << "queried while hidden";
    EXPECT_LT(RowOf(host.Page(), worker.id), 0);
    ShowWindow(host.Page(), SW_SHOW);
    ASSERT_TRUE(PumpTimerTicks(host.Page(), 1));
    EXPECT_GE(RowOf(host.Page(), worker.id), 0);
}

}  // namespace
