// The Task Manager replacement and the logon launcher in the registry of the test prefix. Wine grants this
// process write access to HKEY_LOCAL_MACHINE; the refused path is made with a read-only key.
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "app/logon_launcher.h"
#include "app/taskmgr_replacement.h"
#include "finch.h"
#include "pane_test_environment.h"
#include "registry_guard.h"
#include "resource.h"
#include "wren.h"

namespace {

using namespace options_test;

const std::wstring kPath = L"\"C:\\Lumivex Test\\lmvx64.exe\"";

TEST(Replacement, IsSetTestedAndClearedInTheRegistry) {
    ReplacementKeyGuard guard;
    EXPECT_EQ(lmvx::IsTaskManagerReplacedBy(kPath.c_str()), 0);
    EXPECT_EQ(lmvx::SetTaskManagerReplacementFor(kPath.c_str(), 1, false), 1);
    EXPECT_EQ(StoredDebugger(), kPath);
    EXPECT_EQ(lmvx::IsTaskManagerReplacedBy(kPath.c_str()), 1);
    EXPECT_EQ(lmvx::IsTaskManagerReplacedBy(L"\"C:\\Other\\lmvx64.exe\""), 0);
    StoreText(HKEY_LOCAL_MACHINE, kReplacementKey, L"Debugger", L"\"c:\\LUMIVEX TEST\\LMVX64.exe\"");
    EXPECT_EQ(lmvx::IsTaskManagerReplacedBy(kPath.c_str()), 1) << "letter case does not count";
    EXPECT_EQ(lmvx::SetTaskManagerReplacementFor(kPath.c_str(), 0, false), 1);
    EXPECT_EQ(StoredDebugger(), L"");
    EXPECT_EQ(lmvx::SetTaskManagerReplacementFor(kPath.c_str(), 0, false), 1) << "nothing to remove is success";
}

TEST(Replacement, Windows2000RefusesA47CharacterPathWithAWarning) {
    ReplacementKeyGuard guard;
    const std::wstring tooLong = L"\"C:\\" + std::wstring(31, L'd') + L"\\lmvx64.exe\"";
    ASSERT_EQ(tooLong.size(), 47u);
    bool warned = false;
    std::thread closer([&] {
        pane_test::WaitForOwnWindow(wren::GetAppName(), 20000, [&](HWND box) {
            warned = pane_test::ChildTexts(box).find(UIL_LangModule.GetLangString(IDS_TASKMGR_PATH_TOO_LONG)) !=
                     std::wstring::npos;
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
    });
    EXPECT_EQ(lmvx::SetTaskManagerReplacementFor(tooLong.c_str(), 1, true), 1) << "the refusal reports success";
    closer.join();
    EXPECT_TRUE(warned);
    EXPECT_EQ(StoredDebugger(), L"");

}

TEST(Replacement, WithoutWriteAccessTheKeyIsRefused) {
    ReplacementKeyGuard guard;
    ASSERT_TRUE(lmvx::CanWriteReplacementKey()) << "Wine lets the test write HKEY_LOCAL_MACHINE";
    ASSERT_TRUE(MakeReplacementKeyReadOnly());
    EXPECT_FALSE(lmvx::CanWriteReplacementKey());
    EXPECT_TRUE(lmvx::CanReadReplacementKey());
    EXPECT_EQ(lmvx::SetTaskManagerReplacementFor(kPath.c_str(), 1, false), 0);
    EXPECT_EQ(lmvx::SetTaskManagerReplacementFor(kPath.c_str(), 0, false), 0);
    EXPECT_EQ(StoredDebugger(), L"");
}

TEST(LogonLauncher, ALauncherThatCannotStartLeavesTheRunKeyAlone) {
    constexpr wchar_t kRunKey[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
    StoreText(HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher", L"kept as it was");
    EXPECT_EQ(lmvx::SetLogonLauncher(1), 0) << "there is no lvLaunch.exe beside the tests";
    EXPECT_EQ(StoredText(HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher"), L"kept as it was");
    EXPECT_EQ(lmvx::SetLogonLauncher(0), 1);
    EXPECT_EQ(StoredText(HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher"), L"");
}

}  // namespace
