// Restart of a process: end it through the confirmed terminate action, then start its command line again.
#pragma once
#include <windows.h>

#include <string>

#include "kestrel.h"

namespace lmvx {

// The command line a restart starts: the process's own, kept in a buffer of 1024 bytes, so at most 511
// characters survive (longer ones are cut, intended).
std::wstring RestartCommandLine(const wchar_t* processCommandLine);

// Ends a process (with the user's confirmation); 1 when it was ended.
using TerminateAction = int (*)(unsigned pid, HWND owner);

// Restarts the process: nothing happens when terminate declines or fails; when the new start fails, the
// old process stays ended and a warning over owner tells the system's reason. True when the start worked.
bool RestartProcess(const kestrel::TL_PROCESSLIST& provider, unsigned pid, HWND owner, TerminateAction terminate);

}  // namespace lmvx
