// Writes and reads the program's stored settings in this test prefix's registry, so that tests start
// the program in a known state (a stored language, so the first-start language choice never blocks).
#pragma once
#include <windows.h>

#include <optional>
#include <vector>

namespace lmvx::test {

inline constexpr const wchar_t* kSettingsKey = L"Software\\Orvane Software\\Lumivex\\Settings";

void StoreDword(const wchar_t* name, DWORD value);
void StoreBinary(const wchar_t* name, const void* data, DWORD size);
void DeleteSetting(const wchar_t* name);
std::optional<DWORD> ReadDword(const wchar_t* name);
std::vector<BYTE> ReadBinary(const wchar_t* name);

// English or German, and no start-up warning that would wait for a person.
void SeedQuietStart(LANGID language);

}  // namespace lmvx::test
