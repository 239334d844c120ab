// Texts that start-up builds from values: the 64-bit hand-over command line and the build information.
#pragma once
#include <string>

namespace lmvx {

// "lmvx64.exe <whole command line>", cut to what a 512-character buffer holds.
std::wstring FormatHandOverCommandLine(const wchar_t* commandLine);

// True when the command line asks for the build information ("/BUILDINFO", any case, anywhere).
bool AsksForBuildInfo(const wchar_t* commandLine);

// The build information text, cut to what a 368-character buffer holds.
std::wstring FormatBuildInfo(const wchar_t* sourceFile, int line, const wchar_t* function, unsigned buildNumber,
                             const wchar_t* buildDate, const wchar_t* buildTime);

// The file-name part of a path (after the last '\\' or '/').
const wchar_t* FileNamePart(const wchar_t* path);

}  // namespace lmvx
