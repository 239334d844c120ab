// Version resource and link time stamp of an image file.
#pragma once
#include <windows.h>
#include <string>

#include "version_text.h"

namespace kestrel::detail {

struct VersionInfo {
    std::wstring description;
    std::wstring companyName;
    std::wstring productName;
    std::wstring fileVersion;
    std::wstring productVersion;
    std::wstring copyright;
    DWORD fileVersionHigh = 0;
    DWORD fileVersionLow = 0;
};

// False when the file has no version resource (the fields then stay empty).
bool ReadVersionInfo(const std::wstring& path, VersionInfo& info);
// The link time of an image (seconds since 1970, UTC) from its PE header; false when it is not an image.
bool ReadLinkTimeStamp(const std::wstring& path, DWORD& secondsSince1970);

}  // namespace kestrel::detail
