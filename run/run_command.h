// Starting what the user typed into the Run dialog, as the current user or elevated.
#pragma once
#include <windows.h>

#include <string>

namespace lmvx {

// The shell verb of a start: the default verb for the current user, "runas" to ask for elevation.
const wchar_t* RunVerb(bool asCurrentUser);

// ShellExecuteW's result counts as a failure at 32 or less.
constexpr bool IsShellExecuteFailure(INT_PTR result) { return result <= 32; }

// The system's text for an error code, at most 256 characters, without the trailing line break.
std::wstring SystemMessageText(DWORD errorCode);

// Starts the command with the shell. On failure shows the warning over owner and returns false.
bool StartRunCommand(HWND owner, const wchar_t* command, bool asCurrentUser);

}  // namespace lmvx
