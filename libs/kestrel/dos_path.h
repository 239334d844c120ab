// Native object paths of files turned into the paths users know: "\Device\HarddiskVolume1\dir\f.txt"
// becomes "C:\dir\f.txt" through the device name behind each drive letter. Values in, values out.
#pragma once
#include <span>
#include <string>
#include <string_view>

namespace kestrel::detail {

// A drive letter and the native device it stands for, as QueryDosDevice gives them ("C:", "\Device\HarddiskVolume1").
struct DriveDevice {
    std::wstring drive;
    std::wstring device;
};

// The DOS form of a native path; the path unchanged when no drive's device is a prefix of it. "\??\C:\x" and
// "\DosDevices\C:\x" lose their prefix; "\Device\Mup\server\share\x" and "\Device\LanmanRedirector\..." become
// "\\server\share\x". Device names compare without regard to case and must end at a backslash or the path's end.
std::wstring NativeToDosPath(std::wstring_view nativePath, std::span<const DriveDevice> drives);

// True for "X:\..." and "X:" (a letter, a colon, then nothing or a backslash): a file or folder on a drive.
bool IsDrivePath(std::wstring_view path);

// Registry key paths in the form of the registry editor: "\REGISTRY\MACHINE\SOFTWARE" becomes
// "HKLM\SOFTWARE", "\REGISTRY\USER\S-1-5-21-..." "HKU\S-1-5-21-..."; other paths stay as they are.
std::wstring RegistryDisplayPath(std::wstring_view nativePath);

}  // namespace kestrel::detail
