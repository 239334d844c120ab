// Texts and times of version data: pure functions, tested directly.
#pragma once
#include <windows.h>
#include <string>

namespace kestrel::detail {

// The block name of one language and code page in a version resource ("040904b0").
std::wstring TranslationBlockName(WORD language, WORD codePage);
// "major.minor.build.revision" from the two halves of a fixed file version.
std::wstring FormatFileVersion(DWORD high, DWORD low);
// Seconds since 1970 (a PE link time stamp) as a UTC SYSTEMTIME.
SYSTEMTIME SystemTimeFromUnixSeconds(DWORD secondsSince1970);

}  // namespace kestrel::detail
