// Version data of one file, as the program's pages read it.
#include "provider_fixture.h"

#include <gtest/gtest.h>

#include <string>

TEST(ImageInfo, ReadsTheVersionResourceOfASystemLibraryAndTheBufferFormsCutAndTerminate) {
    wchar_t directory[MAX_PATH];
    const std::wstring kernel32 = std::wstring(directory, GetSystemDirectoryW(directory, MAX_PATH)) + L"\\kernel32.dll";
    kestrel::_IMAGEINFO info;
    ASSERT_NE(info.LoadVersionInfo(kernel32.c_str()), 0);
    EXPECT_GT(wcslen(info.GetDisplayName()), 0u);
    EXPECT_NE(info.GetVersionHigh() | info.GetVersionLow(), 0u);
    wchar_t version[64];
    EXPECT_EQ(info.GetFileVersion(version, ARRAYSIZE(version)), version);
    EXPECT_GT(wcslen(version), 0u);
    const std::wstring product = info.GetProductName();
    ASSERT_GE(product.size(), 2u);
    wchar_t cut[3] = {L'x', L'x', L'x'};
    info.GetProductName(cut, ARRAYSIZE(cut));
    EXPECT_EQ(std::wstring(cut), product.substr(0, 2));
    wchar_t whole[256];
    EXPECT_EQ(std::wstring(info.GetProductName(whole, ARRAYSIZE(whole))), product);
}

// This test program has no version data: empty texts, its file name, and its link time as the time stamp.
TEST(ImageInfo, AFileWithoutVersionDataGivesEmptyTextsItsFileNameAndItsLinkTime) {
    const auto* base = reinterpret_cast<const BYTE*>(GetModuleHandleW(nullptr));
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const ULONGLONG ticks = 116444736000000000ULL + headers->FileHeader.TimeDateStamp * 10000000ULL;
    FILETIME linkTime{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME expected{};
    ASSERT_TRUE(FileTimeToSystemTime(&linkTime, &expected));
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);

    kestrel::_IMAGEINFO info;
    EXPECT_STREQ(info.GetDisplayName(), L"") << "before any file is read";
    EXPECT_EQ(info.GetVersionHigh(), 0u);
    EXPECT_EQ(info.LoadVersionInfo(path), 0);
    EXPECT_STREQ(info.GetDisplayName(), L"kestrel_provider_tests.exe");
    EXPECT_STREQ(info.GetCompanyName(), L"");
    EXPECT_STREQ(info.GetProductName(), L"");
    wchar_t copyright[16] = L"unchanged";
    EXPECT_STREQ(info.GetCopyright(copyright, ARRAYSIZE(copyright)), L"");
    kestrel_test::ExpectSameTime(info.GetTimeStamp(), expected, false);

    kestrel::_IMAGEINFO missing;
    EXPECT_EQ(missing.LoadVersionInfo(L"C:\\no such folder\\no such file.exe"), 0);
    EXPECT_STREQ(missing.GetCompanyName(), L"");
    EXPECT_EQ(missing.GetTimeStamp().wYear, 0);
}
