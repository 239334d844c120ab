// Runs the real lmvx64.exe under Wine: the build-information switch, a missing component library, a
// normal start with a stored placement that saves its placement on close, and a start with a wrongly sized
// placement and the German language.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "program_runner.h"
#include "remote_list_view.h"
#include "settings_seed.h"

namespace lmvx::test {
namespace {

constexpr DWORD kWindowWaitMs = 30000;
const std::wstring kMainCaption = L"Orvane Lumivex 5";

std::wstring ProgramPath() { return TestBinFolder() + L"\\lmvx64.exe"; }

using lmvx_test::AnyTextContains;

// Closes the box the way a user would: OK, or Enter on the default button.
void DismissBox(HWND box) {
    if (GetDlgItem(box, IDOK)) {
        PressButton(box, IDOK);
    } else {
        PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
    }
}

// Any case at any position of the command line is matched (the switch's own test covers the forms); here the
// program shows the text and exits.
TEST(BuildInfoSwitch, ShowsTheBuildTextAndExitsWithZero) {
    ProgramRunner program;
    ASSERT_TRUE(program.Start(ProgramPath(), L"-first /BuildInfo -last"));
    HWND box = program.WaitForWindowWithCaption(L"Orvane Lumivex", kWindowWaitMs);
    ASSERT_NE(box, nullptr) << "no build information box";
    EXPECT_TRUE(AnyTextContains(box, L"Build Information"));
    EXPECT_TRUE(AnyTextContains(box, L"8212"));
    EXPECT_TRUE(AnyTextContains(box, L"wWinMain"));
    DismissBox(box);
    EXPECT_EQ(program.WaitForExit(kWindowWaitMs), 0u);
}

namespace fs = std::filesystem;

// A fresh folder under this prefix's temp folder holding copies of the named files of this build.
fs::path FolderWith(const wchar_t* name, std::initializer_list<const wchar_t*> files) {
    const fs::path folder = fs::temp_directory_path() / name;
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const wchar_t* file : files) fs::copy_file(fs::path(TestBinFolder()) / file, folder / file);
    return folder;
}

// Without kestrel64.dll beside it the program ends with the message and exit code 1157, also when the
// current folder holds one: a component library is never taken from there.
TEST(MissingComponent, EndsWithTheMessageAndExitCode1157AndIsNotTakenFromTheCurrentFolder) {
    const fs::path program = FolderWith(L"lmvx-missing-kestrel", {L"lmvx64.exe", L"wren64.dll", L"finch64.dll", L"heron64.dll"});
    const fs::path planted = FolderWith(L"lmvx-planted", {L"kestrel64.dll", L"heron64.dll"});
    SeedQuietStart(0x0409);
    ProgramRunner runner;
    ASSERT_TRUE(runner.Start((program / L"lmvx64.exe").wstring(), L"", planted.wstring()));
    HWND box = runner.WaitForWindowWithCaption(L"Lumivex", kWindowWaitMs);
    ASSERT_NE(box, nullptr) << "no message about the missing component";
    EXPECT_TRUE(AnyTextContains(box, L"A component required for the execution of Lumivex was not found."));
    DismissBox(box);
    EXPECT_EQ(runner.WaitForExit(kWindowWaitMs), static_cast<DWORD>(ERROR_DLL_NOT_FOUND));
    std::error_code ignored;
    fs::remove_all(program, ignored);
    fs::remove_all(planted, ignored);
}

HWND WaitForMainWindow(const ProgramRunner& program) {
    return program.WaitForWindow(
        [](HWND window) { return WindowText(window) == kMainCaption && ClassName(window) == L"#32770"; },
        kWindowWaitMs);
}

// A stored minimised placement comes back as a normal visible window at its place; the closing window saves
// its placement again. (The main window's dialogs are tested with its commands.)
TEST(NormalStart, OpensTheMainWindowAtItsStoredPlaceAndSavesItsPlacementOnClose) {
    SeedQuietStart(0x0409);
    WINDOWPLACEMENT stored{};
    stored.length = sizeof stored;
    stored.showCmd = SW_SHOWMINIMIZED;
    stored.rcNormalPosition = RECT{40, 50, 40 + 700, 50 + 500};
    StoreBinary(L"MainWndPlacement", &stored, sizeof stored);

    ProgramRunner program;
    ASSERT_TRUE(program.Start(ProgramPath(), L""));
    HWND main = WaitForMainWindow(program);
    ASSERT_NE(main, nullptr) << "the main window did not open";
    EXPECT_FALSE(IsIconic(main));
    WINDOWPLACEMENT now{};
    now.length = sizeof now;
    ASSERT_TRUE(GetWindowPlacement(main, &now));
    EXPECT_EQ(now.rcNormalPosition.left, 40);
    EXPECT_EQ(now.rcNormalPosition.top, 50);
    EXPECT_EQ(now.rcNormalPosition.right - now.rcNormalPosition.left, 700);
    EXPECT_EQ(now.rcNormalPosition.bottom - now.rcNormalPosition.top, 500);
    // Menus are private to their process under Wine: only that there is one can be seen from here.
    EXPECT_NE(GetMenu(main), nullptr);
    RemoteListView rows(GetDlgItem(main, 5001));
    ASSERT_TRUE(rows.IsValid()) << "no process list";
    EXPECT_EQ(rows.HeaderText(0), L"Process");
    EXPECT_EQ(rows.HeaderText(2), L"I/O");
    DeleteSetting(L"MainWndPlacement");
    PostMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_NE(program.WaitForExit(kWindowWaitMs), STILL_ACTIVE);
    EXPECT_EQ(ReadBinary(L"MainWndPlacement").size(), 44u);
}

TEST(NormalStart, AWrongSizedPlacementIsIgnoredAndTheWindowSpeaksGermanWhenGermanIsChosen) {
    SeedQuietStart(0x0407);
    BYTE wrong[40] = {};
    StoreBinary(L"MainWndPlacement", wrong, sizeof wrong);

    ProgramRunner program;
    ASSERT_TRUE(program.Start(ProgramPath(), L""));
    HWND main = WaitForMainWindow(program);
    ASSERT_NE(main, nullptr);
    RECT rect;
    GetWindowRect(main, &rect);
    EXPECT_EQ(rect.right - rect.left, 656);
    EXPECT_EQ(rect.bottom - rect.top, 580);
    RemoteListView rows(GetDlgItem(main, 5001));
    EXPECT_EQ(rows.HeaderText(2), L"E/A");
    EXPECT_EQ(rows.HeaderText(0), L"Prozess");
    PostMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_NE(program.WaitForExit(kWindowWaitMs), STILL_ACTIVE);
    SeedQuietStart(0x0409);
}

}  // namespace
}  // namespace lmvx::test
