// The system calls behind OpenInShell, replaceable so that tests can watch what would be opened without
// starting the shell.
#pragma once
#include <windows.h>

#include <cstddef>

namespace lmvx {

struct ShellOpenCalls {
    DWORD (*fileAttributes)(void* context, const wchar_t* path);
    // Runs on the helper thread; path is valid during the call only.
    void (*execute)(void* context, const wchar_t* path);
    void* context;
};

// The calls OpenInShell uses: GetFileAttributesW and ShellExecuteW with the default verb.
ShellOpenCalls SystemShellCalls();
int OpenInShellWith(const wchar_t* path, const ShellOpenCalls& calls);

// Copies source while room is left and always terminates; false when the copy was cut. capacity counts
// characters, the terminator included, and must be at least 1.
bool CopyTruncated(wchar_t* destination, size_t capacity, const wchar_t* source);

}  // namespace lmvx
