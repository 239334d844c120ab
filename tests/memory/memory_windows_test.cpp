// The memory viewer, its search and the search's progress dialog reached from the real main window's
// menu command, the viewer alone, the Virtual Memory page and the Strings page, all as real dialogs with the
// program's resources, on a child process that holds known strings.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "finch.h"
#include "held_handles.h"
#include "main_window_host.h"
#include "memory/hex_dump.h"
#include "memory/image_string_scan.h"
#include "memory/memory_viewer.h"
#include "memory/memory_viewer_context.h"
#include "memory/process_memory.h"
#include "memory/region_text.h"
#include "memory/string_set.h"
#include "memory/strings_page.h"
#include "memory/virtual_memory_page.h"
#include "memory_child.h"
#include "props/properties_context.h"
#include "resource.h"
#include "window_texts.h"
#include "wren.h"

namespace {

using lmvx_test::PollUntil;
using lmvx_test::PumpUntil;
using lmvx_test::WindowText;

constexpr DWORD kLimitMs = 30000;

class MemoryWindows : public ::testing::Test {
protected:
    static void SetUpTestSuite() { program_ = new lmvx_test::ScopedHostedProgram(L"LumivexMemoryTest"); }
    static void TearDownTestSuite() { delete program_; }
    void SetUp() override { ASSERT_TRUE(child.Ready()); }

    static std::wstring Text(HWND dialog, int id) {
        HWND control = GetDlgItem(dialog, id);
        std::vector<wchar_t> text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1);
        GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    static void Read(HWND dialog, const std::wstring& address) {
        SetDlgItemTextW(dialog, IDC_MEM_ADDRESS, address.c_str());
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
    }
    static std::wstring Hex(uint64_t value) {
        wchar_t text[32];
        swprintf(text, 32, L"%llX", static_cast<unsigned long long>(value));
        return text;
    }
    // The hex dump of the child's bytes, as the viewer shows them.
    std::wstring ExpectedDump(uint64_t address, size_t length) {
        std::vector<uint8_t> bytes(length);
        SIZE_T read = 0;
        lmvx::UniqueHandle process = lmvx::OpenProcessMemory(child.Pid());
        if (!ReadProcessMemory(process.Get(), reinterpret_cast<const void*>(address), bytes.data(), length, &read)) return {};
        std::string text(lmvx::HexDumpBufferSize(length), '\0');
        text.resize(lmvx::FormatHexDump(bytes.data(), length, text.data(), text.size(), static_cast<uint32_t>(address)));
        return {text.begin(), text.end()};
    }

    static lmvx_test::ScopedHostedProgram* program_;
    memory_test::MemoryChild child;
};
lmvx_test::ScopedHostedProgram* MemoryWindows::program_ = nullptr;

bool FollowUpsDone(const lmvx::MemoryViewerContext& context) {
    return !context.symbolPending && context.dumpShown == context.dumpText.size();
}

TEST_F(MemoryWindows, ViewerDumpsTheBytesAtAnAddressAndDescribesItsRegion) {
    lmvx::MemoryViewerContext context;
    context.processId = child.Pid();
    lmvx::UniqueWindow viewer(UIL_LangModule.LoadDialogParam(IDD_MEMORY_VIEWER, nullptr, lmvx::MemoryViewerProc,
                                                             reinterpret_cast<LPARAM>(&context)));
    ASSERT_TRUE(viewer);
    HWND dialog = viewer.Get();
    HWND dump = GetDlgItem(dialog, IDC_MEM_DUMP);
    EXPECT_EQ(Text(dialog, IDC_MEM_ADDRESS), L"0x00400000");
    Read(dialog, L"0x" + Hex(child.Ascii()) + L"  [Private: 65536 Bytes]");
    const std::wstring expected = ExpectedDump(child.Ascii(), 0x10000 - 0x100);
    ASSERT_EQ(expected.size(), (0x10000u - 0x100) / 16 * 61);
    // The first lines show at once, the rest follows on the viewer's timer; what the user selects and
    // where the user scrolls meanwhile stays.
    EXPECT_EQ(Text(dialog, IDC_MEM_DUMP).substr(0, 61), expected.substr(0, 61));
    SendMessageW(dump, EM_SETSEL, 70, 80);
    SendMessageW(dump, EM_LINESCROLL, 0, 5);
    const LRESULT firstVisible = SendMessageW(dump, EM_GETFIRSTVISIBLELINE, 0, 0);
    ASSERT_TRUE(PumpUntil([&] { return FollowUpsDone(context); }, kLimitMs));
    EXPECT_EQ(Text(dialog, IDC_MEM_DUMP), expected);
    DWORD selectionStart = 0, selectionEnd = 0;
    SendMessageW(dump, EM_GETSEL, reinterpret_cast<WPARAM>(&selectionStart), reinterpret_cast<LPARAM>(&selectionEnd));
    EXPECT_EQ(std::make_pair(selectionStart, selectionEnd), std::make_pair(DWORD{70}, DWORD{80}));
    EXPECT_GT(firstVisible, 0);
    EXPECT_EQ(SendMessageW(dump, EM_GETFIRSTVISIBLELINE, 0, 0), firstVisible);
    EXPECT_EQ(Text(dialog, IDC_MEM_SYMBOL), L"Unknown");
    EXPECT_EQ(Text(dialog, IDC_MEM_STATE), L"MEM_COMMIT");
    EXPECT_EQ(Text(dialog, IDC_MEM_TYPE), L"MEM_PRIVATE");
    EXPECT_EQ(Text(dialog, IDC_MEM_PROTECT), L"PAGE_READWRITE");
    EXPECT_EQ(Text(dialog, IDC_MEM_BASE_ADDRESS), lmvx::Hex32Text(child.Committed()));

    // A reserved region read before the last dump is complete: nothing of the last dump follows (Windows
    // reads nothing there, Wine zeros); the region's own fields; the allocation base link reads it back.
    Read(dialog, Hex(child.Ascii()));
    Read(dialog, Hex(child.Reserved() + 0x20));
    ASSERT_TRUE(PumpUntil([&] { return FollowUpsDone(context); }, kLimitMs));
    EXPECT_EQ(Text(dialog, IDC_MEM_DUMP), ExpectedDump(child.Reserved() + 0x20, 0x10000 - 0x20));
    EXPECT_EQ(Text(dialog, IDC_MEM_STATE), L"MEM_RESERVE");
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_MEM_ALLOCATION_BASE, STN_CLICKED), 0);
    EXPECT_EQ(Text(dialog, IDC_MEM_ADDRESS), lmvx::Hex32Text(child.Reserved()));

    // Text that does not parse is address 0, which is free.
    Read(dialog, L"nothing");
    EXPECT_EQ(Text(dialog, IDC_MEM_ADDRESS), L"0x00000000");
    EXPECT_EQ(Text(dialog, IDC_MEM_STATE), L"MEM_FREE");
    EXPECT_EQ(Text(dialog, IDC_MEM_TYPE), L"Undefined");
    EXPECT_EQ(Text(dialog, IDC_MEM_PROTECT), L"Undefined");
}

// Holds the thread that runs a memory search in the scan's first message dispatch until released, so that
// the progress dialog can be looked at (and cancelled) while the scan waits.
class ScanHold {
public:
    explicit ScanHold(DWORD thread) : thread_(thread), hook_(SetWindowsHookExW(WH_GETMESSAGE, Hook, nullptr, thread)) {}
    ~ScanHold() {
        Release();
        if (hook_) UnhookWindowsHookEx(hook_);
    }
    // Posted right after the search command, so that the scan's first dispatch takes it.
    void Arm() {
        ResetEvent(release_);
        PostThreadMessageW(thread_, kHoldMessage, 0, 0);
    }
    void Release() { SetEvent(release_); }

private:
    static constexpr UINT kHoldMessage = WM_APP + 77;
    static LRESULT CALLBACK Hook(int code, WPARAM removal, LPARAM lParam) {
        const auto* message = reinterpret_cast<const MSG*>(lParam);
        if (code == HC_ACTION && removal == PM_REMOVE && !message->hwnd && message->message == kHoldMessage) {
            // What other threads send meanwhile (the progress dialog disabling its owner) is answered.
            while (MsgWaitForMultipleObjects(1, &release_, FALSE, INFINITE, QS_SENDMESSAGE) == WAIT_OBJECT_0 + 1) {
                MSG sent;
                PeekMessageW(&sent, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
            }
        }
        return CallNextHookEx(nullptr, code, removal, lParam);
    }
    static inline HANDLE release_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    DWORD thread_;
    HHOOK hook_;
};

// Types the find text and starts the search, looks at the progress dialog while the scan is held (and
// presses its Cancel when asked), then waits until the progress dialog has closed after the scan.
void RunSearch(HWND search, ScanHold& hold, const wchar_t* findText, bool cancel) {
    SetDlgItemTextW(search, IDC_SEARCH_TEXT, findText);
    PostMessageW(search, WM_COMMAND, MAKEWPARAM(IDC_MEM_SEARCH, BN_CLICKED), 0);
    hold.Arm();
    HWND progress = nullptr;
    EXPECT_TRUE(PollUntil([&] { return (progress = lmvx_test::FindOwnWindow(L"Search Process Memory")) != nullptr; }));
    if (progress) {
        EXPECT_TRUE(PollUntil([&] {
            const std::wstring label = WindowText(GetDlgItem(progress, IDC_SEARCH_PROGRESS_TEXT));
            return label.size() == 26 && label.starts_with(L"Reading Address 0x");
        }));
        if (cancel) {
            PostMessageW(progress, WM_COMMAND, IDCANCEL, 0);
            EXPECT_TRUE(PollUntil([&] { return !IsWindowEnabled(GetDlgItem(progress, IDCANCEL)); }));
        }
    }
    hold.Release();
    if (progress) {
        EXPECT_TRUE(PollUntil([&] { return !IsWindow(progress); }, kLimitMs));
    }
}

std::vector<std::pair<std::wstring, std::wstring>> ResultRows(HWND list) {
    std::vector<std::pair<std::wstring, std::wstring>> rows;
    for (int row = 0; row < ListView_GetItemCount(list); ++row)
        rows.emplace_back(lmvx_test::CellText(list, row, 0), lmvx_test::CellText(list, row, 1));
    return rows;
}

TEST_F(MemoryWindows, MenuCommandOpensTheViewerWhoseSearchListsOpensAndCancels) {
    lmvx_test::HostedMainWindow main;
    ASSERT_TRUE(main.SelectProcess(child.Pid(), kLimitMs));

    using Row = std::pair<std::wstring, std::wstring>;
    const Row ascii{lmvx::Hex32Text(child.Ascii()), L"LumivexAsciiMarker"};
    const Row wide{lmvx::Hex32Text(child.Wide()), L"LumivexWideMarker"};
    enum class Open { Button, Enter, DoubleClick };
    struct Case {
        const wchar_t* findText;
        std::vector<Row> rows;  // top first
        Open open;
        int select;  // the row selected before opening; -1: none
        std::wstring shown;  // the viewer's address afterwards
    };
    const Case cases[] = {
        {L"marker", {wide, ascii}, Open::Button, 1, ascii.first},  // later results go on top
        {L"WIDEMARKER", {wide}, Open::DoubleClick, 0, wide.first},
        {L"sciimark", {ascii}, Open::Enter, -1, ascii.first},  // without a selection the first row
        {L"no string holds this", {}, Open::Button, -1, ascii.first},  // nothing to open
    };
    const std::wstring pid = std::to_wstring(child.Pid());
    const std::wstring searchCaption = L"Search Memory (Process " + pid + L")";
    HWND viewer = nullptr;
    HWND search = nullptr;
    std::atomic<bool> done{false};
    std::thread watcher([&] {
        PollUntil([&] { return (viewer = lmvx_test::FindOwnWindow(L"Process Memory Viewer (Process " + pid + L")")); });
        if (viewer) {
            EXPECT_EQ(WindowText(GetDlgItem(viewer, IDC_MEM_ADDRESS)), L"0x00400000");
            PostMessageW(viewer, WM_COMMAND, IDC_MEM_SEARCH, 0);
            PollUntil([&] { return (search = lmvx_test::FindOwnWindow(searchCaption)); });
        }
        if (search) {
            // "Search..." again raises the open search dialog instead of opening a second one.
            DWORD_PTR ignored = 0;
            EXPECT_TRUE(SendMessageTimeoutW(viewer, WM_COMMAND, IDC_MEM_SEARCH, 0, SMTO_NORMAL, kLimitMs, &ignored));
            EXPECT_EQ(lmvx_test::FindOwnWindow(searchCaption, search), nullptr);
            HWND list = GetDlgItem(search, IDC_SEARCH_RESULTS);
            ScanHold hold(GetWindowThreadProcessId(search, nullptr));
            for (const Case& test : cases) {
                RunSearch(search, hold, test.findText, false);
                EXPECT_EQ(ResultRows(list), test.rows) << test.findText;
                if (test.select >= 0) {
                    ListView_SetSelectionMark(list, test.select);
                    ListView_SetItemState(list, test.select, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
                }
                RECT row{LVIR_BOUNDS};
                switch (test.open) {
                case Open::Button: SendMessageW(search, WM_COMMAND, IDC_SEARCH_OPEN_ADDRESS, 0); break;
                case Open::Enter: SendMessageW(search, WM_COMMAND, IDOK, 0); break;
                case Open::DoubleClick:
                    SendMessageW(list, LVM_GETITEMRECT, test.select, reinterpret_cast<LPARAM>(&row));
                    SendMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM((row.left + row.right) / 2, (row.top + row.bottom) / 2));
                    break;
                }
                EXPECT_EQ(WindowText(GetDlgItem(viewer, IDC_MEM_ADDRESS)), test.shown) << test.findText;
            }
            // Cancel before the first chunk: an empty find text would have listed every string.
            RunSearch(search, hold, L"", true);
            EXPECT_EQ(ListView_GetItemCount(list), 0);
        }
        // Closing the viewer closes its search dialog first.
        if (viewer) PostMessageW(viewer, WM_COMMAND, IDCANCEL, 0);
        if (!PollUntil([&] { return !IsWindow(viewer) && !IsWindow(search); }, kLimitMs)) {
            ADD_FAILURE() << "the viewer or its search dialog stayed open";
            if (search) PostMessageW(search, WM_COMMAND, IDCANCEL, 0);
        }
        done = true;
    });
    // The command as a menu choice sends it to the main window, which hands it to the details pane.
    PostMessageW(main.Get(), WM_COMMAND, IDM_MEMORY_VIEWER, 0);
    const bool finished = PumpUntil([&] { return done.load(); }, 10 * kLimitMs);
    watcher.join();
    ASSERT_TRUE(finished);
    EXPECT_TRUE(viewer);
    EXPECT_TRUE(search);
}

class PropertyPages : public MemoryWindows {
protected:
    void SetUp() override {
        MemoryWindows::SetUp();
        ASSERT_EQ(processList.Init(), 1);
        ASSERT_TRUE(lmvx_test::PumpUntil([this] { return processList.Update() && processList.GetItemByPID(child.Pid()) >= 0; }, 20000));
        context.pid = child.Pid();
        context.processList = &processList;
        context.refreshInterval = 60000;
        host.Reset(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW, 0, 0, 700, 500, nullptr, nullptr,
                                   nullptr, nullptr));
    }
    void TearDown() override { processList.Delete(); }

    HWND CreatePage(unsigned dialogId, DLGPROC procedure) {
        page.Reset(UIL_LangModule.LoadDialogParam(dialogId, host.Get(), procedure, reinterpret_cast<LPARAM>(&context)));
        return page.Get();
    }

    kestrel::TL_PROCESSLIST processList;
    lmvx::ProcessPropertiesContext context;
    lmvx::UniqueWindow host;
    lmvx::UniqueWindow page;
};

TEST_F(PropertyPages, VirtualMemoryPageDumpsOnePageAndStepsOverUncommittedMemory) {
    HWND vm = CreatePage(IDD_PAGE_VIRTUAL_MEMORY, lmvx::VirtualMemoryPageProc);
    ASSERT_TRUE(vm);
    EXPECT_EQ(context.virtualMemoryPage, vm);
    Read(vm, Hex(child.Ascii()));
    const std::wstring description = Text(vm, IDC_MEM_ADDRESS);
    EXPECT_EQ(description, L"0x" + std::wstring(16 - Hex(child.Ascii()).size(), L'0') + Hex(child.Ascii()) + L" (MEM_PRIVATE)");
    const std::wstring dump = Text(vm, IDC_MEM_DUMP);
    EXPECT_EQ(dump.substr(0, 9), L":" + lmvx::Hex32Text(child.Ascii()).substr(2));
    EXPECT_EQ(dump.substr(44, 16), L"LumivexAsciiMark");
    EXPECT_EQ(dump.size(), 4096u / 16 * 62);
    // The described address reads again as the same address.
    SendMessageW(vm, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(Text(vm, IDC_MEM_ADDRESS), description);

    // From the reserved region "»" goes on to the start of the committed one.
    SetDlgItemTextW(vm, IDC_MEM_ADDRESS, Hex(child.Reserved()).c_str());
    SendMessageW(vm, WM_COMMAND, IDC_VM_NEXT_PAGE, 0);
    EXPECT_EQ(lmvx::ParseHexAddress(Text(vm, IDC_MEM_ADDRESS)), child.Committed());
    SendMessageW(vm, WM_COMMAND, IDC_VM_NEXT_PAGE, 0);
    EXPECT_EQ(lmvx::ParseHexAddress(Text(vm, IDC_MEM_ADDRESS)), child.Committed() + 4096);
    // "«" into the reserved region lands one page before the base the query gives there: its own page.
    SetDlgItemTextW(vm, IDC_MEM_ADDRESS, Hex(child.Committed()).c_str());
    SendMessageW(vm, WM_COMMAND, IDC_VM_PREVIOUS_PAGE, 0);
    EXPECT_EQ(lmvx::ParseHexAddress(Text(vm, IDC_MEM_ADDRESS)), child.Committed() - 8192);

    child.Process().End();
    SendMessageW(vm, WM_COMMAND, IDOK, 0);
    // Whether the ended process can still be opened or not, the dump field says why nothing shows.
    EXPECT_EQ(Text(vm, IDC_MEM_DUMP).rfind(L"Unable to read memory from the ", 0), 0u);
}

TEST_F(PropertyPages, StringsPageListsTheImageStringsAndFilters) {
    const std::wstring path = processList.GetItemPathName(processList.GetItemByPID(child.Pid()));
    lmvx::StringSet* expected = lmvx::StringSetCreate();
    ASSERT_EQ(lmvx::LoadImageStrings(expected, path.c_str()), 1);
    const int count = lmvx::StringSetCount(expected);
    ASSERT_GT(count, 100);

    HWND strings = CreatePage(IDD_PAGE_STRINGS, lmvx::StringsPageProc);
    ASSERT_TRUE(strings);
    HWND list = GetDlgItem(strings, IDC_STRINGS_LIST);
    ShowWindow(strings, SW_SHOW);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return IsWindowEnabled(GetDlgItem(strings, IDOK)) != FALSE; }, 240000));
    ASSERT_EQ(ListView_GetItemCount(list), count);
    wchar_t text[300];
    for (int i : {0, count / 2, count - 1}) {
        ListView_GetItemText(list, i, 0, text, 300);
        EXPECT_STREQ(text, lmvx::StringSetItem(expected, i)) << i;
    }
    EXPECT_FALSE(GetWindowLongPtrW(GetDlgItem(strings, IDC_STRINGS_STATUS), GWL_STYLE) & WS_VISIBLE);

    // Typing filters once the text rests for 500 ms; a text without a match empties the list.
    SetDlgItemTextW(strings, IDC_STRINGS_FILTER, L"no string holds this");
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ListView_GetItemCount(list) == 0; }, 10000));
    SetDlgItemTextW(strings, IDC_STRINGS_FILTER, L"");
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ListView_GetItemCount(list) == count; }, 10000));
    lmvx::StringSetFree(expected);
}

TEST(ImageStringsFile, UnreadableAndEmptyFiles) {
    lmvx::StringSet* set = lmvx::StringSetCreate();
    EXPECT_EQ(lmvx::LoadImageStrings(set, L"C:\\no such folder\\no such file.exe"), 0);
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring empty = std::wstring(folder) + L"lmvx_empty_image.bin";
    CloseHandle(CreateFileW(empty.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    EXPECT_EQ(lmvx::LoadImageStrings(set, empty.c_str()), 1);
    EXPECT_EQ(lmvx::StringSetCount(set), 0);
    DeleteFileW(empty.c_str());
    lmvx::StringSetDestroy(set);
    EXPECT_EQ(set->magic, lmvx::kStringSetDestroyed);
    EXPECT_EQ(lmvx::StringSetAdd(set, L"late"), 0);
    lmvx::StringSetFree(set);
}

// The capacity steps by 1024 whatever memory stands behind it, and every string stays readable.
TEST(ImageStringsFile, CapacityGrowsBy1024AndEveryStringStays) {
    lmvx::StringSet* set = lmvx::StringSetCreate();
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(lmvx::StringSetAdd(set, std::to_wstring(i).c_str()), 1);
        if (i == 2999) { EXPECT_EQ(set->capacity, 3072u); }
    }
    EXPECT_EQ(set->capacity, 5120u);
    for (int i = 0; i < 5000; ++i) ASSERT_EQ(lmvx::StringSetItem(set, i), std::to_wstring(i)) << i;
    lmvx::StringSetFree(set);
}

}  // namespace
