#include <gtest/gtest.h>

#include "wren.h"

TEST(AppInfo, IdentityBuildInstanceAndSettingsKeyComeBackAsRegistered) {
    wren::SetAppInfo(L"Orvane Lumivex 5", L"Lumivex", L"5.0", 5001, L"lmvx");
    EXPECT_STREQ(wren::GetAppNameFull(), L"Orvane Lumivex 5");
    EXPECT_STREQ(wren::GetAppName(), L"Lumivex");
    EXPECT_STREQ(wren::GetAppCode(), L"lmvx");
    EXPECT_STREQ(wren::GetAppVersionText(), L"5.0");
    EXPECT_EQ(wren::GetAppVersionNumber(), 5001u);
    EXPECT_EQ(wren::PostInit(), 1);
    wren::SetBuildInfo(L"Sep 21 2008", L"20:02:31", 8212);
    EXPECT_STREQ(wren::GetBuildDate(), L"Sep 21 2008");
    EXPECT_STREQ(wren::GetBuildTime(), L"20:02:31");
    EXPECT_EQ(wren::GetBuildNumber(), 8212u);
    HINSTANCE self = GetModuleHandleW(nullptr);
    wren::SetStoredInstance(self);
    EXPECT_EQ(wren::GetStoredInstance(), self);
}

TEST(OsChecks, AgreeWithTheVersionKernel32ReportsAndA64BitProcessIsNotUnderWow64) {
    static_assert(sizeof(void*) == 8, "these tests are built as 64-bit programs");
    EXPECT_EQ(wren::IsProcessInWow64(), 0);
    // GetVersionEx may understate a newer Windows for programs without a manifest, but never across
    // the lines these checks draw.
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof(version);
    ASSERT_TRUE(GetVersionExW(&version));
    EXPECT_EQ(wren::IsOSVistaOrHigher(), version.dwMajorVersion >= 6 ? 1 : 0);
    EXPECT_EQ(wren::IsOSWindows2000(), version.dwMajorVersion == 5 && version.dwMinorVersion == 0 ? 1 : 0);
}
