// The Run dialog on its own thread: labels at start, an empty line keeps it open, a failing start with its
// warning, a start of a real program, and recent commands that (intentionally) never show.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "common/unique_resource.h"
#include "finch.h"
#include "test_host.h"
#include "resource.h"
#include "run/run_dialog.h"
#include "run/run_mru.h"
#include "child_process.h"

namespace {

std::wstring Caption() { return UIL_LangModule.GetLangString(IDS_RUN_CAPTION); }

std::wstring ItemText(HWND dialog, int id) {
    wchar_t text[1024] = {};
    GetDlgItemTextW(dialog, id, text, 1024);
    return text;
}

// Opens the dialog over host on this thread; driver runs on another thread with the dialog once it shows.
void RunDialogWith(HWND host, const std::function<void(HWND dialog)>& driver) {
    std::thread driving([&] {
        bool found = lmvx_test::WaitForOwnWindow(Caption(), 20000, driver, host);
        EXPECT_TRUE(found);
    });
    lmvx::OpenRunDialog(host);
    driving.join();
}

void TypeAndPressOk(HWND dialog, const std::wstring& command) {
    SendMessageW(GetDlgItem(dialog, IDC_RUN_COMMAND), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(command.c_str()));
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
}

class RunDialogTest : public ::testing::Test {
protected:
    lmvx_test::TestMainWindow host;
};

// At start: the choices labelled, the current user checked, and the recent commands nowhere (they go to
// control 1003, which the dialog does not have: intended). OK with an empty line leaves the dialog open; a
// start that fails warns with the system's reason and closes the dialog.
TEST_F(RunDialogTest, LabelsChoicesShowsNoRecentCommandStaysOpenForAnEmptyLineAndWarnsOfAFailedStart) {
    lmvx::UniqueRegKey runMru;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, lmvx::kRunMruKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, runMru.Put(),
                              nullptr),
              ERROR_SUCCESS);
    const wchar_t command[] = L"lmvx_recent_command\\1";
    const wchar_t order[] = L"z";
    RegSetKeyValueW(runMru.Get(), nullptr, L"z", REG_SZ, command, sizeof(command));
    RegSetKeyValueW(runMru.Get(), nullptr, L"MRUList", REG_SZ, order, sizeof(order));
    EXPECT_EQ(lmvx::ReadRunMruEntries(runMru.Get()).back(), L"lmvx_recent_command");

    std::wstring currentUser, elevated, text = L"?", boxTexts;
    bool checked = false, stillOpen = false, closed = false;
    LRESULT items = -1;
    RunDialogWith(host.Get(), [&](HWND dialog) {
        currentUser = ItemText(dialog, IDC_RUN_AS_CURRENT_USER);
        elevated = ItemText(dialog, IDC_RUN_AS_ADMINISTRATOR);
        checked = IsDlgButtonChecked(dialog, IDC_RUN_AS_CURRENT_USER) == BST_CHECKED;
        items = SendDlgItemMessageW(dialog, IDC_RUN_COMMAND, CB_GETCOUNT, 0, 0);
        text = ItemText(dialog, IDC_RUN_COMMAND);
        TypeAndPressOk(dialog, L"");
        stillOpen = IsWindow(dialog) && IsWindowVisible(dialog);
        std::thread closer([&] {
            lmvx_test::WaitForOwnWindow(Caption(), 20000, [&](HWND box) {
                boxTexts = lmvx_test::ChildTexts(box);
                PostMessageW(box, WM_COMMAND, IDOK, 0);
            }, dialog);
        });
        TypeAndPressOk(dialog, L"C:\\no such folder\\no such program.exe");
        closer.join();
        closed = lmvx_test::PumpUntil([&] { return !IsWindow(dialog); }, 10000);
    });
    RegDeleteValueW(runMru.Get(), L"z");
    RegDeleteValueW(runMru.Get(), L"MRUList");
    wchar_t user[256] = {};
    DWORD length = 256;
    ASSERT_TRUE(GetUserNameW(user, &length));
    EXPECT_EQ(currentUser, L"Run as current user. (" + std::wstring(user) + L")");
    EXPECT_EQ(elevated, L"Run as Administrator.");
    EXPECT_TRUE(checked);
    EXPECT_EQ(items, 0);
    EXPECT_EQ(text, L"");
    EXPECT_TRUE(stillOpen);
    EXPECT_TRUE(closed);
    EXPECT_NE(boxTexts.find(UIL_LangModule.GetLangString(IDS_ERR_RUN_COMMAND)), std::wstring::npos);
}

TEST_F(RunDialogTest, StartsTheTypedProgramAndCloses) {
    // A batch file lets the shell start the child with arguments; the child writes the marker file.
    const std::wstring folder = lmvx_test::TestTempFolder();
    const std::wstring marker = folder + L"lmvx_run_marker.txt";
    const std::wstring script = folder + L"lmvx_run_test.bat";
    DeleteFileW(marker.c_str());
    const std::wstring wide = L"@\"" + lmvx_test::ChildProcess::HelperPath() + L"\" note \"" + marker + L"\" 0\r\n";
    ASSERT_TRUE(std::ofstream(std::filesystem::path(script), std::ios::binary)
                << std::string(wide.begin(), wide.end()));   // the paths are plain ASCII
    bool closed = false;
    RunDialogWith(host.Get(), [&](HWND dialog) {
        TypeAndPressOk(dialog, script);
        closed = lmvx_test::PumpUntil([&] { return !IsWindow(dialog); }, 10000);
    });
    EXPECT_TRUE(closed);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !lmvx_test::ReadWholeFile(marker).empty(); }, 30000));
    DeleteFileW(marker.c_str());
    DeleteFileW(script.c_str());
}

}  // namespace
