// The commands of the real lmvx64.exe's main window, posted from outside as the menus would send them:
// help, the shutdown questions (always answered No), the sibling tools, the language settings, the about box,
// the limited-access dialog, foreground, show and hide, the elevation request and resuming paused processes.
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

// Help without the help file says so in a box titled Help; each shutdown question (answered No) leaves
// everything running; a missing sibling tool is reported in a warning that names it, never ignored
// silently; the language settings open the language dialog.
struct BoxCase {
    unsigned command;
    const wchar_t* caption;   // "": any dialog box other than the main window
    const wchar_t* text;
    int button;
};

class CommandBoxes : public MainWindowCommands, public ::testing::WithParamInterface<BoxCase> {};

TEST_P(CommandBoxes, ShowTheirTextAndTheProgramRunsOnWhenAnswered) {
    const BoxCase c = GetParam();
    Post(c.command);
    HWND box = program_->WaitForWindow(
        [&](HWND window) {
            return window != main_ && ClassName(window) == L"#32770" && (!*c.caption || WindowText(window) == c.caption);
        },
        kWaitMs);
    ASSERT_NE(box, nullptr) << "no box for command " << c.command;
    EXPECT_TRUE(AnyTextContains(box, c.text));
    if (c.button == IDNO) { ASSERT_NE(GetDlgItem(box, IDNO), nullptr) << "the question offers no No"; }
    PressButton(box, c.button);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(box); }, kWaitMs));
    EXPECT_TRUE(ProgramStillRuns());
}

INSTANTIATE_TEST_SUITE_P(
    HelpShutdownToolsLanguage, CommandBoxes,
    ::testing::Values(BoxCase{IDM_HELP, L"Help", L"Helpfile not found.", IDOK},
                      BoxCase{IDM_REBOOT, L"Lumivex", L"Are you sure you want to reboot the computer?", IDNO},
                      BoxCase{IDM_LOGOFF, L"Lumivex", L"Are you sure you want to log off?", IDNO},
                      BoxCase{IDM_POWER_OFF, L"Lumivex", L"Are you sure you want to power off the computer?", IDNO},
                      BoxCase{IDM_TOOL_PULSEWRIGHT, L"Lumivex", L"pulsewright64.exe", IDOK},
                      BoxCase{IDM_TOOL_HEAPWRIGHT, L"Lumivex", L"heapwright64.exe", IDOK},
                      BoxCase{IDM_LANGUAGE_SETTINGS, L"", L"", IDCANCEL}));

TEST_F(MainWindowCommands, AboutBoxNamesTheProgramVersionAndBuild) {
    Post(IDM_ABOUT);
    HWND about = WaitForBox(L"About Lumivex");
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(WindowText(GetDlgItem(about, IDC_ABOUT_NAME)), L"Orvane Lumivex 5");
    EXPECT_EQ(WindowText(GetDlgItem(about, IDC_ABOUT_VERSION)), L"Version 5.0 (Build 8212)");
    EXPECT_EQ(WindowText(GetDlgItem(about, IDC_ABOUT_BUILD)).rfind(L"Built ", 0), 0u);
    PressButton(about, IDOK);
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(about); }, kWaitMs));
}

// The limited-access dialog stores the elevation request on OK only; the elevation command toggles it.
TEST_F(MainWindowCommands, LimitedAccessStoresTheElevationRequestOnOkOnlyAndTheCommandTogglesIt) {
    for (int button : {IDCANCEL, IDOK}) {
        Post(IDM_SHOW_DIALOG_277);
        HWND dialog = WaitForBox(L"Limited Access");
        ASSERT_NE(dialog, nullptr);
        HWND box = GetDlgItem(dialog, IDC_LIMITED_REQUEST_ELEVATION);
        EXPECT_EQ(SendMessageW(box, BM_GETCHECK, 0, 0), BST_UNCHECKED);
        SendMessageW(box, BM_SETCHECK, BST_CHECKED, 0);
        PressButton(dialog, button);
        ASSERT_TRUE(lmvx_test::PumpUntil([&] { return !IsWindow(dialog); }, kWaitMs));
        const DWORD expected = button == IDOK ? 1u : 0u;
        EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ReadDword(L"RequestElevation").value_or(0) == expected; }, kWaitMs))
            << "button " << button;
    }
    for (DWORD expected : {0u, 1u}) {
        Post(IDM_TOGGLE_REQUEST_ELEVATION);
        EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ReadDword(L"RequestElevation").value_or(0) == expected; }, kWaitMs));
    }
}

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
    // The refresh thread may move rows between the look-up and the change: set until the row stayed put.
    const auto setState = [&](const lmvx_test::ChildProcess& child, UINT state) {
        return lmvx_test::PumpUntil([&] {
            const int row = rowOf(child);
            return row >= 0 && list.SetRowState(row, state, state) && rowOf(child) == row;
        }, kWaitMs);
    };
    ASSERT_TRUE(setState(first, LVIS_SELECTED));
    ASSERT_TRUE(setState(second, LVIS_SELECTED | LVIS_FOCUSED));
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
