// The Kernel Objects dialog reached through the real main window's command 1054, and the Handles and Files
// pages created on a plain parent with a hand-filled context, all against a child holding known handles.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "held_handles.h"
#include "hosted_main_window.h"
#include "kobj/files_page.h"
#include "kobj/kernel_objects_dialog.h"
#include "kobj/handles_page.h"
#include "props/properties_context.h"
#include "window_texts.h"
#include "resource.h"
#include "finch.h"

namespace {

using lmvx_test::HeldHandlesChild;
using lmvx_test::PollUntil;
using lmvx_test::PumpUntil;

constexpr DWORD kLimitMs = 30000;

struct Row {
    unsigned value;
    std::wstring type;
    std::wstring name;
};

std::vector<Row> ReadRows(HWND list, int nameColumn) {
    std::vector<Row> rows;
    for (int row = 0; row < ListView_GetItemCount(list); ++row)
        rows.push_back({lmvx_test::PidOfRow(list, row), lmvx_test::CellText(list, row, 0), lmvx_test::CellText(list, row, nameColumn)});
    return rows;
}

const Row* FindRow(const std::vector<Row>& rows, unsigned long long value) {
    for (const Row& row : rows) {
        if (row.value == value) return &row;
    }
    return nullptr;
}

void SelectRow(HWND list, unsigned value) {
    const int row = lmvx_test::RowOfPid(list, value);
    ListView_SetSelectionMark(list, row);
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

// A top-level dialog whose caption starts with the text (or is the text) and that shows `part` somewhere.
HWND FindDialog(const std::wstring& captionStart, const std::wstring& part = L"") {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, L"#32770", nullptr)) != nullptr) {
        if (lmvx_test::WindowText(found).starts_with(captionStart) && lmvx_test::AnyTextContains(found, part)) break;
    }
    return found;
}
HWND WaitForDialog(const std::wstring& captionStart, const std::wstring& part = L"") {
    HWND found = nullptr;
    PollUntil([&] { return (found = FindDialog(captionStart, part)) != nullptr; }, kLimitMs);
    return found;
}

// Sends a command whose dialog is modal on this thread; `answer` reads and closes it on another thread. It
// looks until the command has returned: on a loaded machine the dialog may come late, and one left
// unanswered would hold the test until its time limit.
void SendAnswered(HWND window, UINT command, const std::wstring& caption, const std::function<void(HWND)>& answer) {
    std::atomic<bool> returned{false};
    std::thread watcher([&] {
        HWND dialog = nullptr;
        PollUntil([&] { return (dialog = FindDialog(caption)) != nullptr || returned.load(); }, INFINITE);
        if (dialog) answer(dialog);
    });
    SendMessageW(window, WM_COMMAND, command, 0);
    returned = true;
    watcher.join();
}

using lmvx_test::ClipboardText;
class KernelObjectsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { program_ = new mainwnd_test::ScopedHostedProgram(L"LumivexKobjTest"); }
    static void TearDownTestSuite() { delete program_; }
    void SetUp() override { ASSERT_TRUE(child.Ready()); }

    static mainwnd_test::ScopedHostedProgram* program_;
    HeldHandlesChild child;
};
mainwnd_test::ScopedHostedProgram* KernelObjectsTest::program_ = nullptr;

TEST_F(KernelObjectsTest, TheMainWindowsCommandOpensTheDialogForTheSelectedProcess) {
    mainwnd_test::HostedMainWindow main;
    ASSERT_TRUE(main.SelectProcess(child.Pid(), kLimitMs));
    std::atomic<bool> done{false};
    std::vector<Row> rows;
    std::thread watcher([&] {
        HWND dialog = WaitForDialog(L"Handles for Process " + std::to_wstring(child.Pid()));
        HWND list = GetDlgItem(dialog, IDC_KOBJ_LIST);
        PollUntil([&] { return IsWindowVisible(list) && ListView_GetItemCount(list) > 0; }, kLimitMs);
        rows = ReadRows(list, 1);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        done = true;
    });
    PostMessageW(main.Get(), WM_COMMAND, IDM_KERNEL_OBJECTS, 0);
    const bool finished = PumpUntil([&] { return done.load(); }, 2 * kLimitMs);
    watcher.join();
    ASSERT_TRUE(finished);

    // What each kind is listed as is the library's business (its tests); the dialog shows it.
    const Row* file = FindRow(rows, child.Value(L"file"));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->type, L"File");
    EXPECT_EQ(file->name, child.FilePath());
    ASSERT_NE(FindRow(rows, child.Value(L"mutex")), nullptr);
    EXPECT_EQ(FindRow(rows, child.Value(L"mutex"))->type, L"Mutant");
}

std::wstring g_openedFolderOf;

// A new handle in the child, which the dialog lists only once it has read the child's handles again.
unsigned PutHandleIntoChild(DWORD pid) {
    HANDLE process = OpenProcess(PROCESS_DUP_HANDLE, FALSE, pid);
    HANDLE remote = nullptr;
    DuplicateHandle(GetCurrentProcess(), GetCurrentProcess(), process, &remote, 0, FALSE, DUPLICATE_SAME_ACCESS);
    CloseHandle(process);
    return static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(remote));
}

TEST_F(KernelObjectsTest, TheDialogsCommandsActOnTheSelectedHandleAndReadTheListAgainAfterEveryCloseAnswer) {
    std::thread watcher([&] {
        HWND dialog = WaitForDialog(L"Handles for Process " + std::to_wstring(child.Pid()));
        HWND list = GetDlgItem(dialog, IDC_KOBJ_LIST);
        const auto listed = [&](unsigned long long value) { return FindRow(ReadRows(list, 1), value) != nullptr; };
        EXPECT_TRUE(PollUntil([&] { return IsWindowVisible(list) && listed(child.Value(L"file")); }, kLimitMs));
        SelectRow(list, static_cast<unsigned>(child.Value(L"file")));
        EXPECT_EQ(lmvx_test::WindowText(GetDlgItem(dialog, IDC_KOBJ_TYPE_LABEL)), L"File");
        SendMessageW(dialog, WM_COMMAND, IDM_HANDLE_COPY_NAME_PAGE, 0);
        EXPECT_EQ(ClipboardText(), child.FilePath());   // the DOS path, not the native name
        SendMessageW(dialog, WM_COMMAND, IDM_HANDLE_OPEN_FOLDER_PAGE, 0);
        EXPECT_EQ(g_openedFolderOf, child.FilePath());

        // The Delete key and a released Delete ask first; whatever the answer, the list is read again.
        const struct {
            bool releasedKey;
            UINT answer;
        } cases[] = {{false, IDNO}, {true, IDYES}};
        for (const auto& c : cases) {
            SelectRow(list, static_cast<unsigned>(child.Value(L"file")));
            const unsigned added = PutHandleIntoChild(child.Pid());
            PostMessageW(c.releasedKey ? dialog : list, c.releasedKey ? WM_SYSKEYUP : WM_KEYDOWN, VK_DELETE, 0);
            HWND warning = WaitForDialog(L"Close Handle", L"Are you sure?");
            EXPECT_NE(warning, nullptr) << c.answer;
            PostMessageW(warning, WM_COMMAND, c.answer, 0);
            EXPECT_TRUE(PollUntil([&] { return listed(added); }, kLimitMs)) << c.answer;
            const auto closed = [&] { return child.FileHandleClosed(); };
            EXPECT_EQ(c.answer == IDYES ? PollUntil(closed) : closed(), c.answer == IDYES);
        }

        // The process ends with the dialog open: updating empties the list (the skipping pass takes some rows
        // at each update), and nothing else happens.
        HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, child.Pid());
        TerminateProcess(process, 0);
        WaitForSingleObject(process, kLimitMs);
        CloseHandle(process);
        EXPECT_TRUE(PollUntil([&] {
            SendMessageW(dialog, WM_COMMAND, IDC_KOBJ_UPDATE_LIST, 0);
            return ListView_GetItemCount(list) == 0;
        }, kLimitMs));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    mainwnd_test::HostedMainWindow main;   // the program's set-up, as the dialog's owner
    lmvx::kobj::ShowHandleListDialog(child.Pid(), main.Get(),
                                     [](const wchar_t* path) { return g_openedFolderOf = path, 1; });
    watcher.join();
}

// A page on a plain parent window, as the properties window would create it.
class PageHost {
public:
    PageHost(unsigned dialogId, DLGPROC procedure, unsigned pid) {
        context.pid = pid;
        context.refreshInterval = 100;
        context.handleList.Init();
        parent_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
        page = UIL_LangModule.LoadDialogParam(dialogId, parent_, procedure, reinterpret_cast<LPARAM>(&context));
        ShowWindow(parent_, SW_SHOWNOACTIVATE);
        ShowWindow(page, SW_SHOW);
    }
    ~PageHost() { DestroyWindow(parent_); }
    HWND List() const { return GetDlgItem(page, IDC_HPAGE_LIST); }

    lmvx::ProcessPropertiesContext context;
    HWND page = nullptr;

private:
    HWND parent_ = nullptr;
};

void CommandWithConfirmation(HWND page, UINT command, const std::wstring& caption, UINT answer) {
    SendAnswered(page, command, caption, [answer](HWND box) { PostMessageW(box, WM_COMMAND, answer, 0); });
}

TEST_F(KernelObjectsTest, TheFilesPageListsExactlyTheFilesAndClosesOneForReal) {
    PageHost host(IDD_PAGE_FILES, lmvx::kobj::FilesPageProc, child.Pid());
    ASSERT_NE(host.page, nullptr);
    std::vector<Row> rows = ReadRows(host.List(), 0);
    const Row* file = FindRow(rows, child.Value(L"file"));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->type, child.FilePath());
    // Exactly the handles the library calls files on a drive: never the pipe, the key or named objects.
    kestrel::_HANDLELIST list;
    ASSERT_EQ(list.QueryHandlesProcess(child.Pid()), 1);
    std::set<unsigned> dosFiles, listed;
    for (unsigned i = 0; i < list.GetHandleCount(); ++i) {
        if (list.GetHandlePtr(i)->IsDosFile())
            dosFiles.insert(static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(list.GetHandlePtr(i)->GetRemoteHandle())));
    }
    for (const Row& row : rows) listed.insert(row.value);
    EXPECT_EQ(listed, dosFiles);

    SelectRow(host.List(), file->value);
    CommandWithConfirmation(host.page, IDM_HANDLE_CLOSE_PAGE, L"Close Remote Handle", IDYES);
    EXPECT_TRUE(PollUntil([&] { return child.FileHandleClosed(); }));
    const unsigned closed = file->value;
    EXPECT_TRUE(PumpUntil([&] { return FindRow(ReadRows(host.List(), 0), closed) == nullptr; }, kLimitMs));
}

TEST_F(KernelObjectsTest, TheHandlesPageHidesUnnamedHandlesUntilAskedAndClosesOnlyOnYesAndOnlyTheSelectedHandle) {
    PageHost host(IDD_PAGE_HANDLES, lmvx::kobj::HandlesPageProc, child.Pid());
    ASSERT_NE(host.page, nullptr);
    std::vector<Row> rows = ReadRows(host.List(), 1);
    ASSERT_NE(FindRow(rows, child.Value(L"event")), nullptr);
    EXPECT_EQ(FindRow(rows, child.Value(L"event"))->type, L"Event");
    for (const Row& row : rows) EXPECT_FALSE(row.name.empty()) << row.type;

    SendMessageW(host.page, WM_COMMAND, IDM_SHOW_UNNAMED_HANDLES, 0);
    const size_t named = rows.size();
    rows = ReadRows(host.List(), 1);
    EXPECT_GT(rows.size(), named);
    EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), [](const Row& row) { return row.name.empty(); }));
    SendMessageW(host.page, WM_COMMAND, IDM_SHOW_UNNAMED_HANDLES, 0);
    EXPECT_EQ(ReadRows(host.List(), 1).size(), named);

    // Properties of the event: its name in the caption, its type in the sheet.
    SelectRow(host.List(), static_cast<unsigned>(child.Value(L"event")));
    std::wstring caption, type;
    SendAnswered(host.page, IDM_HANDLE_PROPERTIES, L"Properties of ", [&](HWND sheet) {
        caption = lmvx_test::WindowText(sheet);
        type = lmvx_test::WindowText(GetDlgItem(sheet, IDC_HPROP_TYPE));
        PostMessageW(sheet, WM_COMMAND, IDOK, 0);
    });
    EXPECT_TRUE(caption.ends_with(L"lmvx_test_event_" + std::to_wstring(child.Pid()))) << caption;
    EXPECT_EQ(type, L"Event");

    // Whether the child holds a handle of that value now, asked of the system rather than of the child.
    const auto heldByChild = [&](unsigned value) {
        HANDLE process = OpenProcess(PROCESS_DUP_HANDLE, FALSE, child.Pid());
        HANDLE local = nullptr;
        const BOOL held = DuplicateHandle(process, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(value)),
                                          GetCurrentProcess(), &local, 0, FALSE, DUPLICATE_SAME_ACCESS);
        if (held) CloseHandle(local);
        CloseHandle(process);
        return held != FALSE;
    };

    // "No" leaves the handle open.
    SelectRow(host.List(), static_cast<unsigned>(child.Value(L"file")));
    CommandWithConfirmation(host.page, IDM_HANDLE_CLOSE_PAGE, L"Close Remote Handle", IDNO);
    ASSERT_TRUE(heldByChild(static_cast<unsigned>(child.Value(L"file"))));

    // The event goes in the child after the page read it, and nothing in the idle child takes its value again.
    // Yes to the question then closes nothing else in the child, and the row goes at the next refresh. (Windows
    // refuses the close and the page says so; Wine reports success for a value the process no longer holds.)
    const auto event = static_cast<unsigned>(child.Value(L"event"));
    HANDLE process = OpenProcess(PROCESS_DUP_HANDLE, FALSE, child.Pid());
    const HANDLE remote = reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(event));
    HANDLE local = nullptr;
    ASSERT_TRUE(DuplicateHandle(process, remote, GetCurrentProcess(), &local, 0, FALSE,
                                DUPLICATE_CLOSE_SOURCE | DUPLICATE_SAME_ACCESS));
    CloseHandle(local);
    CloseHandle(process);
    ASSERT_FALSE(heldByChild(event)) << "the child reused the value";
    SelectRow(host.List(), event);
    std::atomic<bool> answered{false};
    std::thread failureCloser([&] {   // Windows: "could not close the handle"
        HWND failure = nullptr;
        PollUntil([&] { return (failure = FindWindowExW(nullptr, nullptr, L"#32770", L"Close Handle")) || answered; }, INFINITE);
        if (failure) PostMessageW(failure, WM_COMMAND, IDOK, 0);
    });
    CommandWithConfirmation(host.page, IDM_HANDLE_CLOSE_PAGE, L"Close Remote Handle", IDYES);
    answered = true;
    failureCloser.join();
    EXPECT_FALSE(child.FileHandleClosed());
    EXPECT_TRUE(PumpUntil([&] { return FindRow(ReadRows(host.List(), 1), event) == nullptr; }, kLimitMs));
    EXPECT_NE(FindRow(ReadRows(host.List(), 1), child.Value(L"file")), nullptr);

    // "Yes" closes the file in the child.
    SelectRow(host.List(), static_cast<unsigned>(child.Value(L"file")));
    CommandWithConfirmation(host.page, IDM_HANDLE_CLOSE_PAGE, L"Close Remote Handle", IDYES);
    EXPECT_TRUE(PollUntil([&] { return child.FileHandleClosed(); }));
}

}  // namespace
