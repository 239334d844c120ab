// The Modules page on a child that loads version.dll for the test.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "known_threads.h"
#include "message_pump.h"
#include "props/modules_page.h"
#include "props_window_environment.h"
#include "resource.h"
#include "window_texts.h"

namespace {

using lmvx_test::PumpUntil;
using lmvx_test::WindowText;
using props_test::CellText;
using props_test::FindRowWithText;

TEST(ModulesPage, ListsTheChildsModulesInLoadOrderWithTheirVersionData) {
    props_test::SetUpApplication(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
    lmvx_test::KnownThreads child = lmvx_test::KnownThreads::Start();
    ASSERT_TRUE(child.Started());
    props_test::HostedPage host(IDD_PAGE_MODULES, lmvx::ModulesPageProc, child.child->Pid());
    HWND list = GetDlgItem(host.Page(), IDC_MODULES_LIST);
    int row = -1;
    // The loader fills the cells of a row from left to right: the size, last, tells that the row is complete.
    ASSERT_TRUE(PumpUntil([&] {
        row = FindRowWithText(list, 3, L"version.dll");
        return row >= 0 && !CellText(list, row, 5).empty();
    }, 20000));
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
}

}  // namespace
