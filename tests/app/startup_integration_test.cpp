// Runs the real lmvx64.exe under Wine: the build-information switch, a missing component library, a
// normal start that opens the main window, its about box and limited-access dialog, and saves its placement
// on close, and starts with a stored placement or language.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "program_runner.h"
#include "remote_list_view.h"
#include "settings_seed.h"

namespace lmvx::test {
namespace {

constexpr DWORD kWindowWaitMs = 30000;
constexpr int kAboutCommand = 141;
constexpr int kLimitedAccessCommand = 279;
constexpr int kRequestElevationBox = 7014;
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
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    const fs::path folder = fs::path(temp) / name;
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const wchar_t* file : files) fs::copy_file(fs::path(TestBinFolder()) / file, folder / file);
    return folder;
}

void ExpectMissingComponentExit(const fs::path& programFolder, const fs::path& workingFolder) {
    SeedQuietStart(0x0409);
    ProgramRunner program;
    ASSERT_TRUE(program.Start((programFolder / L"lmvx64.exe").wstring(), L"", workingFolder.wstring()));
    HWND box = program.WaitForWindowWithCaption(L"Lumivex", kWindowWaitMs);
    ASSERT_NE(box, nullptr) << "no message about the missing component";
    EXPECT_TRUE(AnyTextContains(box, L"A component required for the execution of Lumivex was not found."));
    DismissBox(box);
    EXPECT_EQ(program.WaitForExit(kWindowWaitMs), static_cast<DWORD>(ERROR_DLL_NOT_FOUND));
}

TEST(MissingComponent, EndsWithTheMessageAndExitCode1157) {
    const fs::path folder = FolderWith(L"lmvx-missing-kestrel", {L"lmvx64.exe", L"wren64.dll", L"finch64.dll", L"heron64.dll"});
    ExpectMissingComponentExit(folder, folder);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

// A component library planted in the current folder must not be picked up in place of a missing one.
TEST(MissingComponent, IsNotTakenFromTheCurrentFolder) {
    const fs::path program = FolderWith(L"lmvx-program-only", {L"lmvx64.exe", L"wren64.dll", L"finch64.dll"});
    const fs::path planted = FolderWith(L"lmvx-planted", {L"kestrel64.dll", L"heron64.dll"});
    ExpectMissingComponentExit(program, planted);
    std::error_code ignored;
    fs::remove_all(program, ignored);
    fs::remove_all(planted, ignored);
}

HWND WaitForMainWindow(const ProgramRunner& program) {
    return program.WaitForWindow(
        [](HWND window) { return WindowText(window) == kMainCaption && ClassName(window) == L"#32770"; },
        kWindowWaitMs);
}

// Waits (bounded) until the window is gone.
bool WaitUntilClosed(HWND window) {
    for (int i = 0; i < 200 && IsWindow(window); ++i) Sleep(50);
    return !IsWindow(window);
}

TEST(NormalStart, OpensTheMainWindowWithItsDialogsAndSavesItsPlacementOnClose) {
    SeedQuietStart(0x0409);
    DeleteSetting(L"MainWndPlacement");
    StoreDword(L"RequestElevation", 0);

    ProgramRunner program;
    ASSERT_TRUE(program.Start(ProgramPath(), L""));
    HWND main = WaitForMainWindow(program);
    ASSERT_NE(main, nullptr) << "the main window did not open";
    RECT rect;
    GetWindowRect(main, &rect);
    EXPECT_EQ(rect.right - rect.left, 656);
    EXPECT_EQ(rect.bottom - rect.top, 580);
    // Menus are private to their process under Wine: only that there is one can be seen from here.
    EXPECT_NE(GetMenu(main), nullptr);
    HWND list = GetDlgItem(main, 5001);
    ASSERT_NE(list, nullptr) << "no process list";
    RemoteListView rows(list);
    ASSERT_TRUE(rows.IsValid());
    EXPECT_EQ(rows.HeaderText(0), L"Process");
    EXPECT_EQ(rows.HeaderText(2), L"I/O");

    const auto openDialog = [&](int command, const wchar_t* caption) {
        PostMessageW(main, WM_COMMAND, command, 0);
        return program.WaitForWindowWithCaption(caption, kWindowWaitMs);
    };
    HWND about = openDialog(kAboutCommand, L"About Lumivex");
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(WindowText(GetDlgItem(about, 7002)), L"Orvane Lumivex 5");
    EXPECT_EQ(WindowText(GetDlgItem(about, 7003)), L"Version 5.0 (Build 8212)");
    EXPECT_EQ(WindowText(GetDlgItem(about, 7004)).rfind(L"Built ", 0), 0u);
    PressButton(about, IDOK);
    EXPECT_TRUE(WaitUntilClosed(about));

    // The limited-access dialog stores the elevation request on OK only.
    HWND dialog = openDialog(kLimitedAccessCommand, L"Limited Access");
    ASSERT_NE(dialog, nullptr);
    HWND box = GetDlgItem(dialog, kRequestElevationBox);
    EXPECT_EQ(SendMessageW(box, BM_GETCHECK, 0, 0), BST_UNCHECKED);
    SendMessageW(box, BM_SETCHECK, BST_CHECKED, 0);
    PressButton(dialog, IDCANCEL);
    ASSERT_TRUE(WaitUntilClosed(dialog));
    EXPECT_EQ(ReadDword(L"RequestElevation").value_or(99), 0u) << "Cancel must not store";
    dialog = openDialog(kLimitedAccessCommand, L"Limited Access");
    ASSERT_NE(dialog, nullptr);
    SendMessageW(GetDlgItem(dialog, kRequestElevationBox), BM_SETCHECK, BST_CHECKED, 0);
    PressButton(dialog, IDOK);
    for (int i = 0; i < 100 && ReadDword(L"RequestElevation").value_or(0) == 0; ++i) Sleep(50);
    EXPECT_EQ(ReadDword(L"RequestElevation").value_or(0), 1u);

    PostMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_NE(program.WaitForExit(kWindowWaitMs), STILL_ACTIVE);
    EXPECT_EQ(ReadBinary(L"MainWndPlacement").size(), 44u);
    SeedQuietStart(0x0409);
}

TEST(NormalStart, AMinimisedPlacementComesBackAsANormalVisibleWindow) {
    SeedQuietStart(0x0409);
    WINDOWPLACEMENT stored{};
    stored.length = sizeof stored;
    stored.showCmd = SW_SHOWMINIMIZED;
    stored.rcNormalPosition = RECT{40, 50, 40 + 700, 50 + 500};
    StoreBinary(L"MainWndPlacement", &stored, sizeof stored);

    ProgramRunner program;
    ASSERT_TRUE(program.Start(ProgramPath(), L""));
    HWND main = WaitForMainWindow(program);
    ASSERT_NE(main, nullptr);
    EXPECT_FALSE(IsIconic(main));
    WINDOWPLACEMENT now{};
    now.length = sizeof now;
    ASSERT_TRUE(GetWindowPlacement(main, &now));
    EXPECT_EQ(now.rcNormalPosition.left, 40);
    EXPECT_EQ(now.rcNormalPosition.top, 50);
    EXPECT_EQ(now.rcNormalPosition.right - now.rcNormalPosition.left, 700);
    EXPECT_EQ(now.rcNormalPosition.bottom - now.rcNormalPosition.top, 500);
    PostMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_NE(program.WaitForExit(kWindowWaitMs), STILL_ACTIVE);
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
