// Opens a path with the shell's default action on a thread of its own; behind every "Open Containing Folder".
#pragma once
#include <windows.h>

namespace lmvx {

// Hands the shell a copy of path without its last character, cut to its folder when that copy names a
// folder or nothing (see shell_open.cpp). 0 for an empty path or when the copy cannot be made, else 1; the
// shell's own outcome is not reported.
int OpenInShell(const wchar_t* path);

}  // namespace lmvx
