// The commands of the real lmvx64.exe's main window, posted from outside as the menus would send them:
// help, the shutdown questions (always answered No), foreground, show and hide, the sibling tools, the
// elevation request, the language settings and resuming paused processes.
#include <gtest/gtest.h>
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>

#include "child_process.h"
#include "kestrel.h"
#include "message_pump.h"
#include "program_runner.h"
#include "remote_list_view.h"
#include "resource.h"
#include "settings_seed.h"

namespace lmvx::test {
namespace {

constexpr DWORD kWaitMs = 30000;
const std::wstring kMainCaption = L"Orvane Lumivex 5";
const std::wstring kAppName = L"Lumivex";

using lmvx_test::AnyTextContains;

class MainWindowCommands : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        SeedQuietStart(0x0409);
        DeleteSetting(L"RequestElevation");
        DeleteSetting(L"Topmost");
        program_ = new ProgramRunner();
        if (!program_->Start(TestBinFolder() + L"\\lmvx64.exe", L"")) return;
        main_ = program_->WaitForWindow(
            [](HWND window) { return WindowText(window) == kMainCaption && ClassName(window) == L"#32770"; }, kWaitMs);
    }
    static void TearDownTestSuite() {
        if (main_ && IsWindow(main_)) {
            PostMessageW(main_, WM_CLOSE, 0, 0);
            program_->WaitForExit(kWaitMs);
        }
        delete program_;
        program_ = nullptr;
        main_ = nullptr;
        DeleteSetting(L"RequestElevation");
        DeleteSetting(L"Topmost");
    }
    void SetUp() override { ASSERT_NE(main_, nullptr) << "the main window did not open"; }

    static void Post(unsigned command) { PostMessageW(main_, WM_COMMAND, command, 0); }
    // A dialog box of the program other than the main window, with this caption.
    static HWND WaitForBox(const std::wstring& caption) {
        return program_->WaitForWindow(
            [&](HWND window) {
                return window != main_ && ClassName(window) == L"#32770" && WindowText(window) == caption;
            },
            kWaitMs);
    }
    static bool ProgramStillRuns() {
        return program_->WaitForExit(0) == STILL_ACTIVE && IsWindow(main_) && IsWindowVisible(main_);
    }
    static bool IsTopmost() { return (GetWindowLongPtrW(main_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

    static ProgramRunner* program_;
    static HWND main_;
};

ProgramRunner* MainWindowCommands::program_ = nullptr;
HWND MainWindowCommands::main_ = nullptr;

TEST_F(MainWindowCommands, HelpWithoutTheHelpFileSaysSoInABoxTitledHelp) {
    Post(IDM_HELP);
    HWND box = WaitForBox(L"Help");
    ASSERT_NE(box, nullptr) << "no help box";
    EXPECT_TRUE(AnyTextContains(box, L"Helpfile not found."));
    PressButton(box, IDOK);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(box); }, kWaitMs));
    EXPECT_TRUE(ProgramStillRuns());
}

struct ShutdownCase {
    unsigned command;
    const wchar_t* question;
};

class ShutdownConfirmations : public MainWindowCommands, public ::testing::WithParamInterface<ShutdownCase> {};

TEST_P(ShutdownConfirmations, AnsweringNoLeavesEverythingRunning) {
    Post(GetParam().command);
    HWND box = WaitForBox(kAppName);
    ASSERT_NE(box, nullptr) << "no confirmation";
    EXPECT_TRUE(AnyTextContains(box, GetParam().question));
    ASSERT_NE(GetDlgItem(box, IDNO), nullptr) << "the question offers no No";
    PressButton(box, IDNO);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(box); }, kWaitMs));
    EXPECT_TRUE(ProgramStillRuns());
}

INSTANTIATE_TEST_SUITE_P(
    RebootLogoffPowerOff, ShutdownConfirmations,
    ::testing::Values(ShutdownCase{IDM_REBOOT, L"Are you sure you want to reboot the computer?"},
                      ShutdownCase{IDM_LOGOFF, L"Are you sure you want to log off?"},
                      ShutdownCase{IDM_POWER_OFF, L"Are you sure you want to power off the computer?"}));

TEST_F(MainWindowCommands, ShowOrHideRestoresAMinimisedHiddenWindow) {
    // Wine's dialog loop shows the dialog (SW_SHOWNORMAL) once, when its queue first runs empty; on a busy
    // machine that comes after this minimise and undoes it, so the window is minimised again.
    ASSERT_TRUE(lmvx_test::PumpUntil(
        [&] {
            if (!IsIconic(main_)) ShowWindow(main_, SW_MINIMIZE);
            return IsIconic(main_) != FALSE;
        },
        kWaitMs));
    Post(IDM_TRAY_SHOW_HIDE);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindowVisible(main_); }, kWaitMs));
    Post(IDM_TRAY_SHOW_HIDE);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return IsWindowVisible(main_) && !IsIconic(main_); }, kWaitMs));
}

class MissingSiblingTool : public MainWindowCommands,
                           public ::testing::WithParamInterface<std::pair<unsigned, const wchar_t*>> {};

TEST_P(MissingSiblingTool, IsReportedInAWarningThatNamesIt) {
    const auto [command, fileName] = GetParam();
    Post(command);
    HWND box = WaitForBox(kAppName);
    ASSERT_NE(box, nullptr) << "a missing tool must not be ignored silently";
    EXPECT_TRUE(AnyTextContains(box, fileName));
    PressButton(box, IDOK);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(box); }, kWaitMs));
    EXPECT_TRUE(ProgramStillRuns());
}

INSTANTIATE_TEST_SUITE_P(PulsewrightAndHeapwright, MissingSiblingTool,
                         ::testing::Values(std::make_pair(unsigned{IDM_TOOL_PULSEWRIGHT}, L"pulsewright64.exe"),
                                           std::make_pair(unsigned{IDM_TOOL_HEAPWRIGHT}, L"heapwright64.exe")));

TEST_F(MainWindowCommands, TheElevationCommandTogglesTheStoredRequest) {
    const DWORD before = ReadDword(L"RequestElevation").value_or(0);
    Post(IDM_TOGGLE_REQUEST_ELEVATION);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ReadDword(L"RequestElevation").value_or(0) == (before ? 0u : 1u); }, kWaitMs));
    Post(IDM_TOGGLE_REQUEST_ELEVATION);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ReadDword(L"RequestElevation").value_or(0) == before; }, kWaitMs));
}

TEST_F(MainWindowCommands, LanguageSettingsOpensTheLanguageDialog) {
    Post(IDM_LANGUAGE_SETTINGS);
    HWND dialog = program_->WaitForWindow(
        [](HWND window) { return window != main_ && ClassName(window) == L"#32770"; }, kWaitMs);
    ASSERT_NE(dialog, nullptr) << "no language dialog";
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(dialog); }, kWaitMs));
    EXPECT_TRUE(ProgramStillRuns());
}

TEST_F(MainWindowCommands, ResumeAllResumesAPausedChild) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    ASSERT_NE(kestrel::PRM_SuspendProcess(child.Pid()), 0);
    ASSERT_NE(kestrel::PRM_IsProcessSuspended(child.Pid()), 0);
    Post(IDM_RESUME_ALL);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return kestrel::PRM_IsProcessSuspended(child.Pid()) == 0; }, kWaitMs));
    EXPECT_TRUE(ProgramStillRuns());
}

TEST_F(MainWindowCommands, TheSelectedProcessEndingWhileTheWindowIsInFrontLeavesItResponsive) {
    lmvx_test::ChildProcess first(L"sleep 60000");
    lmvx_test::ChildProcess second(L"sleep 60000");
    ASSERT_TRUE(first.Started() && second.Started());
    const RemoteListView list(GetDlgItem(main_, IDC_PROCESS_LIST));
    ASSERT_TRUE(list.IsValid());
    const auto rowOf = [&](const lmvx_test::ChildProcess& child) { return list.FindRowByData(child.Pid()); };
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return rowOf(first) >= 0 && rowOf(second) >= 0; }, kWaitMs));
    // In front, the refresh thread itself deletes the ended row while the UI thread handles the selection.
    SetForegroundWindow(main_);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return GetForegroundWindow() == main_; }, kWaitMs));
    ASSERT_TRUE(list.SetRowState(rowOf(first), LVIS_SELECTED, LVIS_SELECTED));
    ASSERT_TRUE(list.SetRowState(rowOf(second), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_EQ(list.SelectedCount(), 1) << "every process command acts on one process: one row is selected";

    second.End();
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return rowOf(second) < 0; }, kWaitMs)) << "the ended row stayed";
    // A posted command is carried out: the UI thread is back in its message loop.
    const bool before = IsTopmost();
    Post(IDM_KEEP_IN_FOREGROUND);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return IsTopmost() != before; }, kWaitMs))
        << "the main window hangs, or the foreground command does not toggle the topmost state";
    Post(IDM_KEEP_IN_FOREGROUND);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return IsTopmost() == before; }, kWaitMs));
}

}  // namespace
}  // namespace lmvx::test
