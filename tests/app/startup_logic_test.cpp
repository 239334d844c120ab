// Start-up and main-window arithmetic that needs no running program.
#include <gtest/gtest.h>

#include "app/logon_launcher.h"
#include "app/startup_text.h"
#include "mainwnd/about_dialogs.h"
#include "mainwnd/window_placement.h"

namespace lmvx {
namespace {

// The native executable goes in front of the arguments, all cut to the buffer of 512 characters.
TEST(HandOverCommandLine, PrefixesTheNativeExecutableAndIsCutTo511Characters) {
    EXPECT_EQ(FormatHandOverCommandLine(L"/a \"b c\""), L"lmvx64.exe /a \"b c\"");
    EXPECT_EQ(FormatHandOverCommandLine(L""), L"lmvx64.exe ");
    const std::wstring longArguments(2000, L'x');
    const std::wstring commandLine = FormatHandOverCommandLine(longArguments.c_str());
    EXPECT_EQ(commandLine.size(), 511u);
    EXPECT_EQ(commandLine.substr(0, 11), L"lmvx64.exe ");
}

TEST(BuildInfoSwitch, MatchesInAnyCaseAndAtAnyPosition) {
    for (const wchar_t* line : {L"/BUILDINFO", L"/buildinfo", L"-x /BuildInfo -y", L"x/buildinfoX"}) {
        EXPECT_TRUE(AsksForBuildInfo(line)) << line;
    }
    for (const wchar_t* line : {L"", L"BUILDINFO", L"/BUILD INFO"}) EXPECT_FALSE(AsksForBuildInfo(line)) << line;
    EXPECT_FALSE(AsksForBuildInfo(nullptr));
}

// The text names file, line, function, build and time stamp and is cut to the buffer of 368 characters; the
// file's name is what follows the last separator of either kind.
TEST(BuildInfoText, NamesFileLineFunctionBuildAndTimestampAndIsCutTo367Characters) {
    const std::wstring text = FormatBuildInfo(L"C:\\src\\app\\main.cpp", 76, L"wWinMain", 8212, L"Sep 21 2008", L"20:02:31");
    EXPECT_EQ(text, L"Address:\tmain.cpp[76]:wWinMain\nBuild:\t\t8212\nTimestamp:\tSep 21 2008 (20:02:31)");
    const std::wstring longName(1000, L'n');
    EXPECT_EQ(FormatBuildInfo(longName.c_str(), 76, L"wWinMain", 8212, L"d", L"t").size(), 367u);
    EXPECT_STREQ(FileNamePart(L"a/b\\c.cpp"), L"c.cpp");
    EXPECT_STREQ(FileNamePart(L"a\\b/c.cpp"), L"c.cpp");
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
    for (UINT other : {SW_SHOWMINIMIZED, SW_MINIMIZE, SW_SHOWNORMAL, SW_HIDE}) {
        EXPECT_EQ(RestoredShowCommand(other), static_cast<UINT>(SW_SHOW)) << other;
    }
}

TEST(AboutBox, BuildLine) {
    EXPECT_EQ(AboutBuildLine(L"Built", L"Sep 21 2008", L"20:02:31"), L"Built Sep 21 2008, 20:02:31");
}

}  // namespace
}  // namespace lmvx
