// The General, Start, Performance, Memory and Token pages as real child dialogs on the program's resources,
// for child processes this test starts with a known command line, environment and parent.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>
#include <sddl.h>

#include <algorithm>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "child_process.h"
#include "finch.h"
#include "kestrel.h"
#include "mainwnd/details_pane.h"
#include "mainwnd/details_pane_ids.h"
#include "mainwnd/details_pane_notes.h"
#include "mainwnd/priority_names.h"
#include "pane_test_environment.h"
#include "props/page_services.h"
#include "props/process_info_pages.h"
#include "props/properties_context.h"
#include "resource.h"
#include "test_host.h"

namespace {

using lmvx_test::ChildProcess;

std::wstring Text(HWND page, int id) {
    wchar_t text[2048] = {};
    GetDlgItemTextW(page, id, text, 2048);
    return text;
}

using Rows = std::vector<std::pair<std::wstring, std::wstring>>;

Rows ListRows(HWND list) {
    Rows rows;
    const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) rows.emplace_back(lmvx_test::CellText(list, row, 0), lmvx_test::CellText(list, row, 1));
    return rows;
}

bool NoteStored(const std::wstring& image) {
    return RegGetValueW(HKEY_CURRENT_USER, lmvx::kNotesKey, image.c_str(), RRF_RT_ANY, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS;
}

bool Visible(HWND page, int id) { return (GetWindowLongW(GetDlgItem(page, id), GWL_STYLE) & WS_VISIBLE) != 0; }

// Strings of an environment block as the child wrote it.
size_t StringCount(const std::wstring& block) {
    size_t count = 0;
    for (size_t at = 0; at < block.size() && block[at]; at = block.find(L'\0', at) + 1) ++count;
    return count;
}

class InfoPagesTest : public ::testing::Test {
protected:
    void SetUp() override {
        lmvx::PageServices services;
        services.priorityName = lmvx::PriorityClassName;
        services.loadNote = lmvx::LoadNote;
        services.saveNote = lmvx::SaveNote;
        lmvx::SetPageServices(services);
        ASSERT_TRUE(provider.Init());
        context.processList = &provider;
        context.mainWindow = host.Get();
    }
    void TearDown() override {
        for (HWND page : pages) DestroyWindow(page);
        provider.Delete();
    }
    // The provider lists the child (with its command line read) once it has run a moment.
    void UpdateUntilListed(const ChildProcess& child) {
        ASSERT_TRUE(child.Started());
        ASSERT_TRUE(lmvx_test::PumpUntil(
            [&] {
                provider.Update();
                const int item = provider.GetItemByPID(child.Pid());
                return item >= 0 && *provider.GetItemStaticData(item)->GetCommandLineW() != L'\0';
            },
            10000));
    }
    HWND Open(unsigned dialogId, DLGPROC procedure, unsigned pid) {
        context.pid = pid;
        HWND page = UIL_LangModule.LoadDialogParam(dialogId, host.Get(), procedure, reinterpret_cast<LPARAM>(&context));
        if (page) pages.push_back(page);
        if (page) ShowWindow(page, SW_SHOW);   // some pages read what is slow to read when first shown
        return page;
    }

    // One update of a polling page, as its timer would run it.
    static void Poll(HWND page) { SendMessageW(page, WM_TIMER, IDT_PAGE_POLL, 0); }

    kestrel::TL_PROCESSLIST provider;
    pane_test::HostWindow host;
    lmvx::ProcessPropertiesContext context;
    std::vector<HWND> pages;
};

// The Start page of a child with a known environment; the environment block as far as a buffer reaches; then,
// once the child has ended, no block and a Start page that says so and ends.
TEST_F(InfoPagesTest, StartPageShowsTheChildsOwnEnvironmentCommandLineAndParentAndEndsWithIt) {
    const std::wstring dump = pane_test::TestTempFolder() + L"lumivex_start_page_environment.bin";
    DeleteFileW(dump.c_str());
    const std::wstring environment(L"=C:=C:\\lumivex\0LUMIVEX_ONE=1\0LUMIVEX_TWO=a=b\0SystemRoot=C:\\windows\0\0", 67);
    ChildProcess child(L"environment \"" + dump + L"\" 60000", environment);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return !pane_test::ReadWholeFile(dump).empty(); }, 10000));
    UpdateUntilListed(child);

    HWND page = Open(IDD_PAGE_START, lmvx::StartPageProc, child.Pid());
    ASSERT_NE(page, nullptr);
    const Rows rows = ListRows(GetDlgItem(page, IDC_START_ENVIRONMENT));
    for (const auto& expected : Rows{{L"", L"C:=C:\\lumivex"}, {L"LUMIVEX_ONE", L"1"}, {L"LUMIVEX_TWO", L"a=b"}})
        EXPECT_NE(std::find(rows.begin(), rows.end(), expected), rows.end()) << expected.first;
    EXPECT_EQ(rows.size(), StringCount(pane_test::ReadWholeFile(dump)));
    EXPECT_EQ(Text(page, IDC_START_COMMAND_LINE), child.CommandLine());
    EXPECT_EQ(Text(page, IDC_START_PARENT_PID), std::to_wstring(GetCurrentProcessId()));
    EXPECT_TRUE(Visible(page, IDC_START_PARENT_NAME));
    EXPECT_FALSE(Visible(page, IDC_START_PARENT_GONE));
    const std::wstring started = Text(page, IDC_START_TIME);
    EXPECT_TRUE(started.starts_with(L"Today, ") || started.starts_with(L"Yesterday, ")) << started;
    DeleteFileW(dump.c_str());
    DestroyWindow(page);

    unsigned size = 0;
    ASSERT_TRUE(kestrel::PDM_GetProcessEnvironmentBlock(child.Pid(), nullptr, &size));
    ASSERT_GE(size, environment.size());
    std::wstring block(size, L'#');
    ASSERT_TRUE(kestrel::PDM_GetProcessEnvironmentBlock(child.Pid(), block.data(), &size));
    EXPECT_EQ(size, block.size());
    EXPECT_EQ(block.substr(block.size() - 2), std::wstring(2, L'\0'));
    EXPECT_NE(block.find(L"LUMIVEX_TWO=a=b"), std::wstring::npos);
    std::wstring shortBuffer(8, L'#');
    unsigned shortSize = 5;
    ASSERT_TRUE(kestrel::PDM_GetProcessEnvironmentBlock(child.Pid(), shortBuffer.data(), &shortSize));
    EXPECT_EQ(shortSize, 5u);
    EXPECT_EQ(shortBuffer.substr(0, 5), block.substr(0, 5));
    EXPECT_EQ(shortBuffer.substr(5), L"###");

    const unsigned pid = child.Pid();
    child.End();
    EXPECT_FALSE(kestrel::PDM_GetProcessEnvironmentBlock(pid, nullptr, &size));
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { provider.Update(); return provider.GetItemByPID(pid) < 0; }, 10000));
    std::wstring message;
    std::thread answerer([&] {
        pane_test::WaitForOwnWindow(L"Process Properties", 10000, [&](HWND box) {
            message = pane_test::ChildTexts(box);
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
    });
    page = Open(IDD_PAGE_START, lmvx::StartPageProc, pid);
    answerer.join();
    EXPECT_NE(message.find(L"The process was closed or no information is available."), std::wstring::npos);
    ASSERT_NE(page, nullptr);
    EXPECT_FALSE(IsWindowVisible(page));
}

TEST_F(InfoPagesTest, StartPageOfAProcessWhoseParentEndedShowsTheNotice) {
    ChildProcess parent(L"spawn sleep 60000");
    ASSERT_TRUE(parent.Started());
    unsigned orphan = 0;
    ASSERT_TRUE(lmvx_test::PumpUntil(
        [&] {
            provider.Update();
            for (int i = 0; i < provider.GetItemCount(); ++i)
                if (provider.GetItemParentPID(i) == parent.Pid() && *provider.GetItemStaticData(i)->GetCommandLineW())
                    orphan = provider.GetItemPID(i);
            return orphan != 0;
        },
        10000));
    TerminateProcess(parent.Handle(), 1);   // the grandchild lives on (the job ends it with the test)
    ASSERT_TRUE(parent.WaitForExit(10000));
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { provider.Update(); return provider.GetItemByPID(parent.Pid()) < 0; }, 10000));

    HWND page = Open(IDD_PAGE_START, lmvx::StartPageProc, orphan);
    ASSERT_NE(page, nullptr);
    EXPECT_TRUE(Visible(page, IDC_START_PARENT_GONE));
    EXPECT_TRUE(Visible(page, IDC_START_PARENT_ICON));
    EXPECT_FALSE(Visible(page, IDC_START_PARENT_NAME));
    EXPECT_EQ(Text(page, IDC_START_PARENT_PID), L"n/a");
    EXPECT_NE(Text(page, IDC_START_COMMAND_LINE), L"");
}

// This process's token, which the child inherits: its user SID and how many groups and privileges it has.
struct OwnToken {
    std::wstring sid;
    DWORD groups = 0;
    DWORD privileges = 0;
};

OwnToken ReadOwnToken() {
    OwnToken own;
    HANDLE token = nullptr;
    BYTE buffer[8192];
    DWORD length = 0;
    wchar_t* sid = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return own;
    if (GetTokenInformation(token, TokenUser, buffer, sizeof buffer, &length) &&
        ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(buffer)->User.Sid, &sid))
        own.sid = sid;
    LocalFree(sid);
    if (GetTokenInformation(token, TokenGroups, buffer, sizeof buffer, &length))
        own.groups = reinterpret_cast<TOKEN_GROUPS*>(buffer)->GroupCount;
    if (GetTokenInformation(token, TokenPrivileges, buffer, sizeof buffer, &length))
        own.privileges = reinterpret_cast<TOKEN_PRIVILEGES*>(buffer)->PrivilegeCount;
    CloseHandle(token);
    return own;
}

// The Token page shows this process's user and groups, which the child inherits; the Performance and Memory
// pages follow the child and keep their values when it ends.
TEST_F(InfoPagesTest, TokenPerformanceAndMemoryPagesOfAChild) {
    ChildProcess child(L"sleep 60000");
    UpdateUntilListed(child);
    HWND page = Open(IDD_PAGE_TOKEN, lmvx::TokenPageProc, child.Pid());
    ASSERT_NE(page, nullptr);

    const OwnToken own = ReadOwnToken();
    DWORD session = 0;
    ASSERT_TRUE(ProcessIdToSessionId(child.Pid(), &session));
    EXPECT_EQ(Text(page, IDC_TOKEN_USER), provider.GetItemStaticData(provider.GetItemByPID(child.Pid()))->GetUsername());
    EXPECT_EQ(Text(page, IDC_TOKEN_SID), own.sid);
    EXPECT_EQ(Text(page, IDC_TOKEN_SESSION), std::to_wstring(session));

    const Rows groups = ListRows(GetDlgItem(page, IDC_TOKEN_GROUPS));
    EXPECT_EQ(groups.size(), own.groups);
    for (const auto& [name, flags] : groups) EXPECT_NE(name, L"") << flags;
    const Rows privileges = ListRows(GetDlgItem(page, IDC_TOKEN_PRIVILEGES));
    ASSERT_EQ(privileges.size(), own.privileges);
    for (const auto& [name, flags] : privileges) {
        EXPECT_TRUE(name.starts_with(L"Se")) << name;
        EXPECT_TRUE(flags.ends_with(L" ")) << name << L": " << flags;
    }

    kestrel::UpdateProcessHistories(provider);
    HWND performance = Open(IDD_PAGE_PERFORMANCE, lmvx::PerformancePageProc, child.Pid());
    HWND memory = Open(IDD_PAGE_MEMORY, lmvx::MemoryPageProc, child.Pid());
    ASSERT_TRUE(performance && memory);
    const int item = provider.GetItemByPID(child.Pid());
    const std::wstring handles = std::to_wstring(provider.GetItemHandleCount(item));
    Poll(performance);
    Poll(memory);
    EXPECT_EQ(Text(memory, IDC_MEMORY_HANDLES), handles);
    EXPECT_EQ(Text(memory, IDC_MEMORY_PHYSICAL),
              std::to_wstring(provider.GetItemDynamicData(item)->GetPhysicalMemoryBytes() >> 10) + L" KB");
    EXPECT_EQ(Text(performance, IDC_PERF_PRIORITY), L"Normal");
    EXPECT_EQ(Text(performance, IDC_PERF_CPU_USAGE), std::to_wstring(provider.GetItemCPUUsage(item)) + L" %");
    // Under Wine the I/O counters stay 0: a kind of I/O without bytes keeps "n/a".
    if (provider.GetItemDynamicData(item)->GetIOReadTransferBytes() == 0) {
        EXPECT_EQ(Text(performance, IDC_PERF_READ_OPERATIONS), L"n/a");
    }

    const std::wstring lastPhysical = Text(memory, IDC_MEMORY_PHYSICAL);
    child.End();
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { provider.Update(); return provider.GetItemByPID(child.Pid()) < 0; }, 10000));
    Poll(performance);
    Poll(memory);
    EXPECT_EQ(Text(memory, IDC_MEMORY_PHYSICAL), lastPhysical);
    EXPECT_EQ(Text(memory, IDC_MEMORY_HANDLES), handles);
    EXPECT_EQ(Text(performance, IDC_PERF_PRIORITY), L"Normal");
}

TEST_F(InfoPagesTest, GeneralPageLoadsNotesUpTo511CharactersSavesTheFieldAtCloseAndTellsTheDetailsPane) {
    ChildProcess child(L"sleep 60000");
    UpdateUntilListed(child);
    const int item = provider.GetItemByPID(child.Pid());
    const std::wstring image = provider.GetItemImageName(item);
    struct Case {
        size_t length;
        bool loads;
    };
    for (const Case& c : {Case{511, true}, Case{512, false}, Case{2000, false}}) {
        const std::wstring note(c.length, L'n');
        lmvx::SaveNote(image, note);
        HWND page = Open(IDD_PAGE_GENERAL, lmvx::GeneralPageProc, child.Pid());
        ASSERT_NE(page, nullptr);
        EXPECT_EQ(Text(page, IDC_GENERAL_NOTE), c.loads ? note : L"") << c.length;
        EXPECT_EQ(Text(page, IDC_GENERAL_PID), std::to_wstring(child.Pid()));
        EXPECT_EQ(Text(page, IDC_PAGES_PATH), provider.GetItemPathName(item));
        DestroyWindow(page);   // closing saves the field: a note too long to load is removed
        EXPECT_EQ(NoteStored(image), c.loads) << c.length;
    }
    HWND page = Open(IDD_PAGE_GENERAL, lmvx::GeneralPageProc, child.Pid());
    SetDlgItemTextW(page, IDC_GENERAL_NOTE, L"edited here");
    DestroyWindow(page);
    EXPECT_EQ(lmvx::LoadNote(image), L"edited here");

    page = Open(IDD_PAGE_GENERAL, lmvx::GeneralPageProc, child.Pid());
    EXPECT_EQ(Text(page, IDC_GENERAL_NOTE), L"edited here");
    SetDlgItemTextW(page, IDC_GENERAL_NOTE, L"");
    DestroyWindow(page);
    EXPECT_FALSE(NoteStored(image));

    // A note saved on the page reaches the details pane showing the same image.
    HWND pane = lmvx::DetailsPaneCreate(host.Get(), host.List(), provider, lmvx::PaneActions{});
    ASSERT_NE(pane, nullptr);
    lmvx::DetailsPaneShowProcess(pane, child.Pid());
    lmvx::PageServices services = lmvx::CurrentPageServices();
    services.noteSaved = lmvx::AnnounceNoteSaved;
    lmvx::SetPageServices(services);

    page = Open(IDD_PAGE_GENERAL, lmvx::GeneralPageProc, child.Pid());
    SetDlgItemTextW(page, IDC_GENERAL_NOTE, L"shared with the pane");
    DestroyWindow(page);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return Text(pane, IDC_PANE_NOTES) == L"shared with the pane"; }, 5000));
    DestroyWindow(pane);
    lmvx::SaveNote(image, L"");
}

}  // namespace
