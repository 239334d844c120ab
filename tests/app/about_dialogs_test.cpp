// The about box (command 141) and the limited-access dialog (command 279) of the running program.
#include <gtest/gtest.h>

#include "program_runner.h"
#include "settings_seed.h"

namespace lmvx::test {
namespace {

constexpr DWORD kWaitMs = 30000;
constexpr int kAboutCommand = 141;
constexpr int kLimitedAccessCommand = 279;
constexpr int kRequestElevationBox = 7014;

class RunningProgram : public ::testing::Test {
protected:
    void SetUp() override {
        SeedQuietStart(0x0409);
        ASSERT_TRUE(program_.Start(TestBinFolder() + L"\\lmvx64.exe", L""));
        main_ = program_.WaitForWindow(
            [](HWND w) { return WindowText(w) == L"Orvane Lumivex 5" && ClassName(w) == L"#32770"; }, kWaitMs);
        ASSERT_NE(main_, nullptr);
    }
    void TearDown() override {
        if (main_) PostMessageW(main_, WM_CLOSE, 0, 0);
        program_.WaitForExit(kWaitMs);
        SeedQuietStart(0x0409);
    }
    HWND OpenDialog(int command, const wchar_t* caption) {
        PostMessageW(main_, WM_COMMAND, command, 0);
        return program_.WaitForWindowWithCaption(caption, kWaitMs);
    }

    ProgramRunner program_;
    HWND main_ = nullptr;
};

TEST_F(RunningProgram, AboutBoxNamesTheProgramVersionAndBuild) {
    HWND about = OpenDialog(kAboutCommand, L"About Lumivex");
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(WindowText(GetDlgItem(about, 7002)), L"Orvane Lumivex 5");
    EXPECT_EQ(WindowText(GetDlgItem(about, 7003)), L"Version 5.0 (Build 8212)");
    EXPECT_EQ(WindowText(GetDlgItem(about, 7004)).rfind(L"Built ", 0), 0u);
    PressButton(about, IDOK);
    for (int i = 0; i < 200 && IsWindow(about); ++i) Sleep(50);
    EXPECT_FALSE(IsWindow(about));
}

TEST_F(RunningProgram, LimitedAccessDialogStoresTheElevationRequestOnOkOnly) {
    StoreDword(L"RequestElevation", 0);
    HWND dialog = OpenDialog(kLimitedAccessCommand, L"Limited Access");
    ASSERT_NE(dialog, nullptr);
    HWND box = GetDlgItem(dialog, kRequestElevationBox);
    EXPECT_EQ(SendMessageW(box, BM_GETCHECK, 0, 0), BST_UNCHECKED);
    SendMessageW(box, BM_SETCHECK, BST_CHECKED, 0);
    PressButton(dialog, IDCANCEL);
    for (int i = 0; i < 200 && IsWindow(dialog); ++i) Sleep(50);
    ASSERT_FALSE(IsWindow(dialog));
    EXPECT_EQ(ReadDword(L"RequestElevation").value_or(99), 0u) << "Cancel must not store";

    dialog = OpenDialog(kLimitedAccessCommand, L"Limited Access");
    ASSERT_NE(dialog, nullptr);
    SendMessageW(GetDlgItem(dialog, kRequestElevationBox), BM_SETCHECK, BST_CHECKED, 0);
    PressButton(dialog, IDOK);
    for (int i = 0; i < 100 && ReadDword(L"RequestElevation").value_or(0) == 0; ++i) Sleep(50);
    EXPECT_EQ(ReadDword(L"RequestElevation").value_or(0), 1u);
}

}  // namespace
}  // namespace lmvx::test
