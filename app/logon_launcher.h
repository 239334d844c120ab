// The logon launcher: "lvLaunch.exe spawn" beside the program, started now and at every logon through
// the current user's Run key.
#pragma once
#include <string>

namespace lmvx {

// The launcher command: the module path with its file-name part replaced by "lvLaunch.exe spawn".
std::wstring LauncherCommandFor(const std::wstring& modulePath);

// Enable: start the launcher and register it under the Run key; when it cannot be started nothing is
// registered and the result is 0. Disable: remove the registration. 1 on success.
int SetLogonLauncher(int enable);

}  // namespace lmvx
