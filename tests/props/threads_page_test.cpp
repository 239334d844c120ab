// The Threads page, its panes, its actions and the call stack dialog, on a child with known threads.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

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
#include "window_texts.h"

namespace {

using lmvx_test::KnownThreads;
using lmvx_test::PumpUntil;
using lmvx_test::WindowText;
using props_test::CellText;
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
    // Waits for the thread's row and selects it; false when it never came.
    static bool SelectThread(HWND page, DWORD threadId) {
        const std::wstring id = std::to_wstring(threadId);
        int row = -1;
        if (!PumpUntil([&] { return (row = FindRowWithText(ThreadList(page), 0, id)) >= 0; }, 10000)) return false;
        props_test::SelectRow(ThreadList(page), row);
        return PumpUntil([&] { return WindowText(GetDlgItem(Pane(page, IDC_THREADS_PANE_PERFORMANCE), IDC_THREAD_ID_TEXT)) == id; },
                         10000);
    }

    static KnownThreads* child_;
};

KnownThreads* ThreadsPageTest::child_ = nullptr;

TEST_F(ThreadsPageTest, ListsTheThreadsAndShowsTheSelectedOnesDetails) {
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, child_->child->Pid());
    HWND list = ThreadList(host.Page());
    const std::wstring burning = std::to_wstring(child_->burning);
    EXPECT_TRUE(PumpUntil([&] {
        const int row = FindRowWithText(list, 0, burning);
        return row >= 0 && !CellText(list, row, 1).empty();
    }, 20000)) << "the burning thread shows its CPU usage";
    const int blockedRow = FindRowWithText(list, 0, std::to_wstring(child_->blocked));
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

    ASSERT_TRUE(SelectThread(host.Page(), child_->windowed));
    HWND windows = GetDlgItem(Pane(host.Page(), IDC_THREADS_PANE_WINDOWS), IDC_THREAD_WINDOW_LIST);
    EXPECT_TRUE(PumpUntil([&] { return FindRowWithText(windows, 0, L"Lumivex test thread window") >= 0; }, 10000));
    SendMessageW(host.Page(), WM_COMMAND, IDC_THREADS_SHOW_WINDOWS, 0);
    EXPECT_TRUE(IsWindowVisible(windows));
    EXPECT_FALSE(IsWindowVisible(performance));
}

TEST_F(ThreadsPageTest, ThePaneButtonSuspendsAfterAskingAndResumesWithoutAsking) {
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, child_->child->Pid());
    ASSERT_TRUE(SelectThread(host.Page(), child_->blocked));
    HWND performance = Pane(host.Page(), IDC_THREADS_PANE_PERFORMANCE);
    actions_test::DialogAnswerer answerer(IDYES);
    SendDlgItemMessageW(performance, IDM_THREAD_SUSPEND_RESUME, BM_CLICK, 0, 0);
    EXPECT_TRUE(kestrel::PRM_IsThreadSuspended(child_->blocked));
    EXPECT_EQ(L"Resume Thread", WindowText(GetDlgItem(performance, IDM_THREAD_SUSPEND_RESUME)));
    SendDlgItemMessageW(performance, IDM_THREAD_SUSPEND_RESUME, BM_CLICK, 0, 0);
    EXPECT_FALSE(kestrel::PRM_IsThreadSuspended(child_->blocked));
    const auto seen = answerer.Seen();
    ASSERT_EQ(1u, seen.size());
    EXPECT_EQ(L"Suspend Thread", seen[0].caption);
}

TEST_F(ThreadsPageTest, ThePagesOwnThreadIsNotSuspendedAndTheWindowGoesOn) {
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, GetCurrentProcessId());
    ASSERT_TRUE(SelectThread(host.Page(), GetCurrentThreadId()));
    actions_test::DialogAnswerer answerer(IDYES);
    SendMessageW(host.Page(), WM_COMMAND, IDM_THREAD_SUSPEND_RESUME, 0);
    const auto seen = answerer.Seen();
    ASSERT_EQ(2u, seen.size());
    EXPECT_NE(std::wstring::npos, seen[1].AllText().find(L"could not suspend the thread"));
    DWORD_PTR result = 0;
    EXPECT_TRUE(SendMessageTimeoutW(host.Page(), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 5000, &result));
}

TEST_F(ThreadsPageTest, TerminateAsksAndTheRowGoes) {
    KnownThreads other = KnownThreads::Start();
    ASSERT_TRUE(other.Started());
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, other.child->Pid());
    ASSERT_TRUE(SelectThread(host.Page(), other.burning));
    actions_test::DialogAnswerer answerer(IDYES);
    SendMessageW(host.Page(), WM_COMMAND, IDM_THREAD_TERMINATE, 0);
    const std::wstring id = std::to_wstring(other.burning);
    EXPECT_TRUE(PumpUntil([&] { return FindRowWithText(ThreadList(host.Page()), 0, id) < 0; }, 10000));
    ASSERT_FALSE(answerer.Seen().empty());
    EXPECT_EQ(L"Terminate Thread", answerer.Seen()[0].caption);
}

// Reads the call stack dialog's rows from another thread while the page's thread waits in the command, then
// closes it.
std::vector<std::wstring> ReadCallStackDialog(DWORD threadId) {
    std::vector<std::wstring> rows;
    const std::wstring caption = L"Call Stack for Thread " + std::to_wstring(threadId);
    HWND dialog = nullptr;
    for (int i = 0; i < 3000 && !dialog; ++i, Sleep(10)) dialog = props_test::FindOwnWindow(caption);
    if (!dialog) return rows;
    HWND list = GetDlgItem(dialog, IDC_CALL_STACK_LIST);
    for (int i = 0; i < 3000 && ListView_GetItemCount(list) == 0; ++i) Sleep(10);
    for (int row = 0; row < ListView_GetItemCount(list); ++row) rows.push_back(CellText(list, row, 0));
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    return rows;
}

TEST_F(ThreadsPageTest, TheCallStackOfTheBlockedThreadHoldsTheChildsFunction) {
    HostedPage host(IDD_PAGE_THREADS, lmvx::ThreadsPageProc, child_->child->Pid());
    ASSERT_TRUE(SelectThread(host.Page(), child_->blocked));
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
}

TEST_F(ThreadsPageTest, ACallStackOfAThreadThatIsGoneSaysSo) {
    actions_test::DialogAnswerer answerer(IDOK);
    lmvx::CallStackRequest request;
    EXPECT_EQ(1, lmvx::ShowCallStack(&request, 0xFFFFFFF0u, nullptr));
    bool notFound = false;
    for (const auto& box : answerer.Seen()) {
        notFound |= box.caption == L"Call Stack" && box.AllText().find(L"Thread not found.") != std::wstring::npos;
    }
    EXPECT_TRUE(notFound);
}

}  // namespace
