// The entry point's steps before the main window exists.
#pragma once
#include <windows.h>

namespace lmvx {

// When this is a 32-bit process on 64-bit Windows: starts lmvx64.exe with the same command line, waits
// for it and ends this process with its exit code. Returns only when no hand-over happened.
void HandOverToNativeExecutable(const wchar_t* commandLine);

// "/BUILDINFO" anywhere in the command line: shows the build information (naming the entry point's
// source file) and ends the process with 0.
void AnswerBuildInfoRequest(const wchar_t* commandLine, const wchar_t* sourceFile);

// Privileges, language, component libraries, icons and the process-data provider, in that order.
int Initialize();

}  // namespace lmvx
