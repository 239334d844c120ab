// Restart of real child processes: the new process gets the old command line (cut at 511 characters), and a
// start that fails leaves a warning with the system's reason.
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "finch.h"
#include "mainwnd/details_pane_restart.h"
#include "test_host.h"
#include "resource.h"
#include "child_process.h"

namespace {

int TerminateWithoutAsking(unsigned pid, HWND) {
    HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, pid);
    if (!process) return 0;
    const BOOL ended = TerminateProcess(process, 1);
    WaitForSingleObject(process, 10000);
    CloseHandle(process);
    return ended ? 1 : 0;
}

// Ends the restarted process, found by the command line it wrote.
void EndProcessesWithCommandLine(kestrel::TL_PROCESSLIST& provider, const std::wstring& commandLine) {
    provider.Update();
    for (int i = 0; i < provider.GetItemCount(); ++i) {
        const kestrel::_TASKDATASTATIC* record = provider.GetItemStaticData(i);
        if (record && commandLine == record->GetCommandLineW()) TerminateWithoutAsking(provider.GetItemPID(i), nullptr);
    }
}

class RestartTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(provider.Init());
        marker = lmvx_test::TestTempFolder() + L"lmvx_restart_" + std::to_wstring(GetCurrentProcessId()) + L".txt";
        DeleteFileW(marker.c_str());
    }
    void TearDown() override {
        DeleteFileW(marker.c_str());
        provider.Delete();
    }
    // The command line the child wrote, once the file is there.
    std::wstring WaitForNote() {
        std::wstring note;
        lmvx_test::PumpUntil([&] { return !(note = lmvx_test::ReadWholeFile(marker)).empty(); }, 20000);
        return note;
    }

    kestrel::TL_PROCESSLIST provider;
    std::wstring marker;
};

// The new process gets the old command line, cut at 511 characters. (A declined termination is covered by
// the pane's restart command.)
TEST_F(RestartTest, StartsTheSameCommandLineAgainCutAt511Characters) {
    lmvx_test::ChildProcess child(L"note \"" + marker + L"\" 60000 " + std::wstring(600, L'p'));
    ASSERT_TRUE(child.Started());
    ASSERT_EQ(WaitForNote(), child.CommandLine());
    DeleteFileW(marker.c_str());
    ASSERT_TRUE(provider.Update());

    EXPECT_TRUE(lmvx::RestartProcess(provider, child.Pid(), nullptr, TerminateWithoutAsking));
    EXPECT_TRUE(child.WaitForExit(10000));
    const std::wstring restarted = WaitForNote();
    EXPECT_EQ(restarted.size(), 511u);
    EXPECT_EQ(restarted, child.CommandLine().substr(0, 511));
    EndProcessesWithCommandLine(provider, restarted);
}

TEST_F(RestartTest, AFailedStartShowsTheWarningWithTheSystemReason) {
    // A process the snapshot does not hold has no command line, so the new start must fail.
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    const unsigned pid = child.Pid();
    child.End();
    ASSERT_TRUE(provider.Update());
    ASSERT_LT(provider.GetItemByPID(pid), 0);

    const std::wstring caption = UIL_LangModule.GetLangString(IDS_RESTART_PROCESS_CAPTION);
    std::wstring boxTexts;
    std::thread closer([&] {
        lmvx_test::WaitForOwnWindow(caption, 20000, [&](HWND box) {
            boxTexts = lmvx_test::ChildTexts(box);
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
    });
    lmvx_test::TestMainWindow host;
    const bool restarted = lmvx::RestartProcess(provider, pid, host.Get(), [](unsigned, HWND) { return 1; });
    closer.join();
    EXPECT_FALSE(restarted);
    EXPECT_NE(boxTexts.find(UIL_LangModule.GetLangString(IDS_ERR_RESTART_PROCESS)), std::wstring::npos);
}

}  // namespace
