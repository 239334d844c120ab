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

// Each native path's DOS form, and whether that form is a file or folder on a drive.
TEST(DosPath, NativePathsBecomeDrivePaths) {
    struct Case {
        const wchar_t* native;
        const wchar_t* dos;
        bool onDrive;
    };
    const Case cases[] = {
        {L"\\Device\\HarddiskVolume1\\Windows\\notepad.exe", L"C:\\Windows\\notepad.exe", true},
        {L"\\device\\harddiskvolume1\\x", L"C:\\x", true},                  // device names ignore case
        {L"\\Device\\HarddiskVolume12\\data", L"D:\\data", true},           // not taken for volume 1
        {L"\\Device\\HarddiskVolume1", L"C:", true},                        // the drive's root object itself
        {L"\\Device\\HarddiskVolume13\\data", L"\\Device\\HarddiskVolume13\\data", false},   // no drive: unchanged
        {L"\\??\\C:\\windows\\system32", L"C:\\windows\\system32", true},
        {L"\\DosDevices\\z:\\", L"z:\\", true},
        {L"\\??\\C:Windows", L"C:Windows", false},                          // relative to a drive: no place
        {L"\\??\\1:\\x", L"1:\\x", false},
        {L"\\??\\UNC\\server\\share\\f.txt", L"\\\\server\\share\\f.txt", false},
        {L"\\Device\\Mup\\server\\share\\f.txt", L"\\\\server\\share\\f.txt", false},
        {L"\\Device\\NamedPipe\\lsass", L"\\Device\\NamedPipe\\lsass", false},
        {L"", L"", false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(NativeToDosPath(c.native, kDrives), c.dos) << c.native;
        EXPECT_EQ(IsDrivePath(c.dos), c.onDrive) << c.dos;
    }
}

TEST(DosPath, RegistryRootsGetTheirShortNames) {
    EXPECT_EQ(RegistryDisplayPath(L"\\REGISTRY\\MACHINE\\SOFTWARE\\Wine"), L"HKLM\\SOFTWARE\\Wine");
    EXPECT_EQ(RegistryDisplayPath(L"\\Registry\\User\\S-1-5-21-1\\Software"), L"HKU\\S-1-5-21-1\\Software");
    EXPECT_EQ(RegistryDisplayPath(L"\\REGISTRY\\MACHINEX"), L"\\REGISTRY\\MACHINEX");
}

}  // namespace
