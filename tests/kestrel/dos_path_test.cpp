#include "dos_path.h"

#include <gtest/gtest.h>

namespace {

using kestrel::detail::DriveDevice;
using kestrel::detail::IsDrivePath;
using kestrel::detail::NativeToDosPath;
using kestrel::detail::RegistryDisplayPath;

const DriveDevice kDrives[] = {
    {L"C:", L"\\Device\\HarddiskVolume1"},
    {L"D:", L"\\Device\\HarddiskVolume12"},
    {L"E:", L"\\Device\\CdRom0"},
};

TEST(DosPath, NativePathsBecomeDrivePaths) {
    struct Case {
        const wchar_t* native;
        const wchar_t* dos;
    };
    const Case cases[] = {
        {L"\\Device\\HarddiskVolume1\\Windows\\notepad.exe", L"C:\\Windows\\notepad.exe"},
        {L"\\device\\harddiskvolume1\\x", L"C:\\x"},                  // device names ignore case
        {L"\\Device\\HarddiskVolume12\\data", L"D:\\data"},           // not taken for volume 1
        {L"\\Device\\HarddiskVolume1", L"C:"},                        // the drive's root object itself
        {L"\\Device\\HarddiskVolume13\\data", L"\\Device\\HarddiskVolume13\\data"},   // no drive: unchanged
        {L"\\??\\C:\\windows\\system32", L"C:\\windows\\system32"},
        {L"\\DosDevices\\Z:\\tmp", L"Z:\\tmp"},
        {L"\\??\\UNC\\server\\share\\f.txt", L"\\\\server\\share\\f.txt"},
        {L"\\Device\\Mup\\server\\share\\f.txt", L"\\\\server\\share\\f.txt"},
        {L"\\Device\\NamedPipe\\lsass", L"\\Device\\NamedPipe\\lsass"},
        {L"", L""},
    };
    for (const Case& c : cases) EXPECT_EQ(NativeToDosPath(c.native, kDrives), c.dos) << c.native;
}

TEST(DosPath, OnlyPathsOnADriveAreDrivePaths) {
    EXPECT_TRUE(IsDrivePath(L"C:\\Windows"));
    EXPECT_TRUE(IsDrivePath(L"z:\\"));
    EXPECT_TRUE(IsDrivePath(L"C:"));
    EXPECT_FALSE(IsDrivePath(L"C:Windows"));
    EXPECT_FALSE(IsDrivePath(L"\\\\server\\share\\f.txt"));
    EXPECT_FALSE(IsDrivePath(L"\\Device\\NamedPipe\\x"));
    EXPECT_FALSE(IsDrivePath(L"1:\\x"));
    EXPECT_FALSE(IsDrivePath(L""));
}

TEST(DosPath, RegistryRootsGetTheirShortNames) {
    EXPECT_EQ(RegistryDisplayPath(L"\\REGISTRY\\MACHINE\\SOFTWARE\\Wine"), L"HKLM\\SOFTWARE\\Wine");
    EXPECT_EQ(RegistryDisplayPath(L"\\Registry\\User\\S-1-5-21-1\\Software"), L"HKU\\S-1-5-21-1\\Software");
    EXPECT_EQ(RegistryDisplayPath(L"\\REGISTRY\\MACHINEX"), L"\\REGISTRY\\MACHINEX");
}

}  // namespace
