// The executable core keeps its own copies of the identity it is given.
#include "platform/finch.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

namespace {

// Copies of the identity it is given, overlong texts cut and terminated.
TEST(ExeCore, KeepsCopiesOfTheIdentityCutToSize) {
    APIP_EXECORE core;
    wchar_t name[] = L"Lumivex";
    wchar_t commandLine[] = L"lmvx64.exe /BUILDINFO";
    HINSTANCE instance = GetModuleHandleW(nullptr);
    ASSERT_EQ(1, core.Init(instance, commandLine, SW_SHOWMAXIMIZED, L"Orvane Lumivex 5", name, L"lmvx", L"5.0", 5001));
    ASSERT_EQ(1, core.SetBuildInfo(8212, 1, L"Sep 21 2008", L"20:02:31"));
    // Changing the caller's buffers afterwards must not change what the core reports.
    name[0] = L'X';
    commandLine[0] = L'X';

    EXPECT_EQ(instance, core.GetInstance());
    EXPECT_STREQ(L"lmvx64.exe /BUILDINFO", core.GetCommandLine());
    EXPECT_EQ(SW_SHOWMAXIMIZED, core.GetShowCommand());
    EXPECT_STREQ(L"Orvane Lumivex 5", core.GetAppNameFull());
    EXPECT_STREQ(L"Lumivex", core.GetAppName());
    EXPECT_STREQ(L"lmvx", core.GetAppCode());
    EXPECT_STREQ(L"5.0", core.GetVersionText());
    EXPECT_EQ(5001u, core.GetVersionNumber());
    EXPECT_EQ(8212u, core.GetBuildNumber());
    EXPECT_STREQ(L"Sep 21 2008", core.GetBuildDate());
    EXPECT_STREQ(L"20:02:31", core.GetBuildTime());

    const std::wstring longName(500, L'n');
    const std::wstring longCommandLine(5000, L'c');
    core.Init(nullptr, longCommandLine.c_str(), SW_SHOW, longName.c_str(), longName.c_str(), nullptr, nullptr, 0);
    const std::wstring cut = core.GetAppName();
    EXPECT_FALSE(cut.empty());
    EXPECT_LT(cut.size(), longName.size());
    EXPECT_EQ(longName.substr(0, cut.size()), cut);
    EXPECT_LT(std::wcslen(core.GetCommandLine()), longCommandLine.size());
    EXPECT_STREQ(L"", core.GetAppCode());
}

}  // namespace
