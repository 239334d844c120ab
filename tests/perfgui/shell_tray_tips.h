// Reads the tips the shell shows for its notification-area icons. The shell keeps one tooltip window per
// icon in its own process; the request records are placed in that process's memory, where it writes.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace perfgui_test {

// The tips of all icons the shell of this desktop holds; empty when there is no shell.
std::vector<std::wstring> ShellTrayTips();

}  // namespace perfgui_test
