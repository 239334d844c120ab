#include "app/startup_text.h"

#include <windows.h>
#include <shlwapi.h>

#include <cstdio>
#include <cwchar>

namespace lmvx {
namespace {

// Windows-style wide print (%s is a wide string) into a fixed-size buffer, always terminated.
template <size_t N, typename... Args>
std::wstring FormatBounded(const wchar_t* format, Args... args) {
    wchar_t buffer[N];
    int written = _snwprintf(buffer, N - 1, format, args...);
    buffer[N - 1] = L'\0';
    if (written < 0 || static_cast<size_t>(written) >= N) written = static_cast<int>(N - 1);
    return std::wstring(buffer, wcsnlen(buffer, N));
}

}  // namespace

std::wstring FormatHandOverCommandLine(const wchar_t* commandLine) {
    return FormatBounded<512>(L"lmvx64.exe %s", commandLine ? commandLine : L"");
}

bool AsksForBuildInfo(const wchar_t* commandLine) {
    // The shell's wildcard match ignores case, so the switch counts in any case and at any position.
    return commandLine && PathMatchSpecW(commandLine, L"*/BUILDINFO*");
}

std::wstring FormatBuildInfo(const wchar_t* sourceFile, int line, const wchar_t* function, unsigned buildNumber,
                             const wchar_t* buildDate, const wchar_t* buildTime) {
    return FormatBounded<368>(L"Address:\t%s[%i]:%s\nBuild:\t\t%i\nTimestamp:\t%s (%s)", FileNamePart(sourceFile), line,
                              function, static_cast<int>(buildNumber), buildDate, buildTime);
}

const wchar_t* FileNamePart(const wchar_t* path) {
    const wchar_t* name = path;
    for (const wchar_t* p = path; *p; ++p) {
        if (*p == L'\\' || *p == L'/') name = p + 1;
    }
    return name;
}

}  // namespace lmvx
