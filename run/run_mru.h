// The shell's list of commands typed into its run box (RunMRU), as the Run dialog reads it.
#pragma once
#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace lmvx {

inline constexpr wchar_t kRunMruKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU";

// The list entry a RunMRU value gives: only REG_SZ values with one-character names ("a", "b", ...) are
// commands, so the ordering value "MRUList" is skipped. The shell stores each command with "\1" after it;
// that suffix is cut.
std::optional<std::wstring> RunMruListEntry(const wchar_t* valueName, DWORD valueType, const wchar_t* data);

// The entries of the open RunMRU key in registry enumeration order (not the order MRUList gives).
std::vector<std::wstring> ReadRunMruEntries(HKEY runMru);

}  // namespace lmvx
