// The Modules page on a child that loads version.dll for the test, and on one that loads more modules than
// the page lists.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

#include "known_threads.h"
#include "message_pump.h"
#include "props/modules_page.h"
#include "props_window_environment.h"
#include "resource.h"
#include "test_host.h"
#include "window_texts.h"

namespace {

using lmvx_test::PumpUntil;
using lmvx_test::ClipboardText;
using lmvx_test::WindowText;
using lmvx_test::CellText;
using props_test::FindRowWithText;

// The loader fills the cells of a row from left to right: the size, last, tells that the row is complete.
bool RowIsFilled(HWND list, int row) { return row >= 0 && !CellText(list, row, 5).empty(); }

class ModulesPage : public ::testing::Test {
protected:
    static void SetUpTestSuite() { props_test::SetUpApplication(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)); }
};

TEST_F(ModulesPage, ListsTheChildsModulesInLoadOrderWithTheirVersionDataAndCopiesTheirTexts) {
    lmvx_test::KnownThreads child = lmvx_test::KnownThreads::Start();
    ASSERT_TRUE(child.Started());
    props_test::HostedPage host(IDD_PAGE_MODULES, lmvx::ModulesPageProc, child.child->Pid());
    HWND list = GetDlgItem(host.Page(), IDC_MODULES_LIST);
    int row = -1;
    ASSERT_TRUE(PumpUntil([&] { return RowIsFilled(list, row = FindRowWithText(list, 3, L"version.dll")); }, 20000));
    EXPECT_NE(std::wstring::npos, CellText(list, 0, 3).find(L"lmvx_test_child.exe"));
    const std::wstring base = CellText(list, row, 4);
    EXPECT_EQ(18u, base.size()) << "\"0x\" and 16 digits";
    EXPECT_EQ(0u, base.find(L"0x00000000")) << "the upper half is not shown";

    EXPECT_EQ(L"Select a module to show its description.", WindowText(GetDlgItem(host.Page(), IDC_MODULES_DESCRIPTION)))
        << "before any row is chosen";
    props_test::SelectRow(list, row);
    EXPECT_EQ(CellText(list, row, 3), WindowText(GetDlgItem(host.Page(), IDC_MODULES_PATH)));
    EXPECT_EQ(CellText(list, row, 0), WindowText(GetDlgItem(host.Page(), IDC_MODULES_DESCRIPTION)));
    EXPECT_EQ(CellText(list, row, 1), WindowText(GetDlgItem(host.Page(), IDC_MODULES_COMPANY)));

    // Each copy command puts the selected row's field on the clipboard.
    for (const auto& [command, column] : {std::pair{IDM_MODULE_COPY_DESCRIPTION, 0}, std::pair{IDM_MODULE_COPY_PATHNAME, 3}}) {
        if (OpenClipboard(nullptr)) EmptyClipboard(), CloseClipboard();
        SendMessageW(host.Page(), WM_COMMAND, command, 0);
        EXPECT_EQ(CellText(list, row, column), ClipboardText()) << command;
    }
    DWORD start = 0, end = 0;
    SendDlgItemMessageW(host.Page(), IDC_MODULES_PATH, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                        reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, end) << "the path is left unselected";
}

// The child loads 270 empty DLLs without version data after its own modules; the page lists 256 modules in
// load order, and a DLL without version data shows its file name and no company.
TEST_F(ModulesPage, ListsAtMost256ModulesAndFileNamesForModulesWithoutVersionData) {
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    const std::wstring folder = std::wstring(temporary) + L"lmvx_modules_" + std::to_wstring(GetCurrentProcessId());
    CreateDirectoryW(folder.c_str(), nullptr);
    {
        lmvx_test::ChildProcess child(L"many-modules \"" + folder + L"\" 270 600000");
        const std::wstring loaded = folder + L"\\loaded";
        ASSERT_TRUE(PumpUntil([&] { return GetFileAttributesW(loaded.c_str()) != INVALID_FILE_ATTRIBUTES; }, 60000));
        props_test::HostedPage host(IDD_PAGE_MODULES, lmvx::ModulesPageProc, child.Pid());
        HWND list = GetDlgItem(host.Page(), IDC_MODULES_LIST);
        ASSERT_TRUE(PumpUntil([&] { return RowIsFilled(list, ListView_GetItemCount(list) - 1); }, 60000));
        ASSERT_EQ(256, ListView_GetItemCount(list));
        const int first = FindRowWithText(list, 3, L"empty000.dll");
        ASSERT_GT(first, 0);
        wchar_t last[32];
        swprintf(last, 32, L"empty%03d.dll", 255 - first);
        EXPECT_EQ(last, CellText(list, 255, 0)) << "in load order";
        EXPECT_EQ(L"", CellText(list, 255, 1));
    }
    for (int i = 0; i <= 270; ++i) {
        wchar_t name[32];
        swprintf(name, 32, i < 270 ? L"\\empty%03d.dll" : L"\\loaded", i);
        DeleteFileW((folder + name).c_str());
    }
    RemoveDirectoryW(folder.c_str());
}

}  // namespace
