// Start-up and main-window arithmetic that needs no running program.
#include <gtest/gtest.h>

#include "app/logon_launcher.h"
#include "app/startup_text.h"
#include "mainwnd/about_dialogs.h"
#include "mainwnd/window_placement.h"

namespace lmvx {
namespace {

TEST(HandOverCommandLine, PrefixesTheNativeExecutableAndKeepsTheArguments) {
    EXPECT_EQ(FormatHandOverCommandLine(L"/a \"b c\""), L"lmvx64.exe /a \"b c\"");
    EXPECT_EQ(FormatHandOverCommandLine(L""), L"lmvx64.exe ");
}

TEST(HandOverCommandLine, IsCutToTheBufferOf512Characters) {
    const std::wstring longArguments(2000, L'x');
    const std::wstring commandLine = FormatHandOverCommandLine(longArguments.c_str());
    EXPECT_EQ(commandLine.size(), 511u);
    EXPECT_EQ(commandLine.substr(0, 11), L"lmvx64.exe ");
}

TEST(BuildInfoSwitch, MatchesInAnyCaseAndAtAnyPosition) {
    EXPECT_TRUE(AsksForBuildInfo(L"/BUILDINFO"));
    EXPECT_TRUE(AsksForBuildInfo(L"/buildinfo"));
    EXPECT_TRUE(AsksForBuildInfo(L"-x /BuildInfo -y"));
    EXPECT_TRUE(AsksForBuildInfo(L"x/buildinfoX"));
    EXPECT_FALSE(AsksForBuildInfo(L""));
    EXPECT_FALSE(AsksForBuildInfo(L"BUILDINFO"));
    EXPECT_FALSE(AsksForBuildInfo(L"/BUILD INFO"));
    EXPECT_FALSE(AsksForBuildInfo(nullptr));
}

TEST(BuildInfoText, NamesFileLineFunctionBuildAndTimestamp) {
    const std::wstring text = FormatBuildInfo(L"C:\\src\\app\\main.cpp", 76, L"wWinMain", 8212, L"Sep 21 2008", L"20:02:31");
    EXPECT_EQ(text, L"Address:\tmain.cpp[76]:wWinMain\nBuild:\t\t8212\nTimestamp:\tSep 21 2008 (20:02:31)");
}

TEST(BuildInfoText, IsCutToTheBufferOf368Characters) {
    const std::wstring longName(1000, L'n');
    EXPECT_EQ(FormatBuildInfo(longName.c_str(), 76, L"wWinMain", 8212, L"d", L"t").size(), 367u);
}

TEST(FileNamePart, TakesWhatFollowsTheLastSeparator) {
    EXPECT_STREQ(FileNamePart(L"a/b\\c.cpp"), L"c.cpp");
    EXPECT_STREQ(FileNamePart(L"c.cpp"), L"c.cpp");
    EXPECT_STREQ(FileNamePart(L"dir\\"), L"");
}

TEST(LogonLauncher, ReplacesTheFileNameOfTheModulePath) {
    EXPECT_EQ(LauncherCommandFor(L"C:\\Program Files\\Lumivex\\lmvx64.exe"),
              L"C:\\Program Files\\Lumivex\\lvLaunch.exe spawn");
    EXPECT_EQ(LauncherCommandFor(L"lmvx64.exe"), L"lvLaunch.exe spawn");
}

TEST(PlacementRestore, OnlyMaximisedSurvivesEverythingElseShowsNormally) {
    EXPECT_EQ(RestoredShowCommand(SW_SHOWMAXIMIZED), static_cast<UINT>(SW_SHOWMAXIMIZED));
    EXPECT_EQ(RestoredShowCommand(SW_SHOWMINIMIZED), static_cast<UINT>(SW_SHOW));
    EXPECT_EQ(RestoredShowCommand(SW_MINIMIZE), static_cast<UINT>(SW_SHOW));
    EXPECT_EQ(RestoredShowCommand(SW_SHOWNORMAL), static_cast<UINT>(SW_SHOW));
    EXPECT_EQ(RestoredShowCommand(SW_HIDE), static_cast<UINT>(SW_SHOW));
}

TEST(AboutBox, VersionAndBuildLines) {
    EXPECT_EQ(AboutVersionLine(L"5.0", 8212), L"Version 5.0 (Build 8212)");
    EXPECT_EQ(AboutBuildLine(L"Built", L"Sep 21 2008", L"20:02:31"), L"Built Sep 21 2008, 20:02:31");
}

}  // namespace
}  // namespace lmvx
