#include "settings_seed.h"

namespace lmvx::test {
namespace {

HKEY OpenSettings() {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
    return key;
}

}  // namespace

void StoreDword(const wchar_t* name, DWORD value) {
    HKEY key = OpenSettings();
    RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    RegCloseKey(key);
}

void StoreBinary(const wchar_t* name, const void* data, DWORD size) {
    HKEY key = OpenSettings();
    RegSetValueExW(key, name, 0, REG_BINARY, static_cast<const BYTE*>(data), size);
    RegCloseKey(key);
}

void DeleteSetting(const wchar_t* name) {
    HKEY key = OpenSettings();
    RegDeleteValueW(key, name);
    RegCloseKey(key);
}

std::optional<DWORD> ReadDword(const wchar_t* name) {
    HKEY key = OpenSettings();
    DWORD value = 0, size = sizeof value, type = 0;
    const LSTATUS status = RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS || type != REG_DWORD) return std::nullopt;
    return value;
}

std::vector<BYTE> ReadBinary(const wchar_t* name) {
    HKEY key = OpenSettings();
    DWORD size = 0, type = 0;
    std::vector<BYTE> data;
    if (RegQueryValueExW(key, name, nullptr, &type, nullptr, &size) == ERROR_SUCCESS && type == REG_BINARY) {
        data.resize(size);
        RegQueryValueExW(key, name, nullptr, &type, data.data(), &size);
    }
    RegCloseKey(key);
    return data;
}

void SeedQuietStart(LANGID language) {
    StoreDword(L"LanguageID", language);
    StoreDword(L"ShutdownPrivilegeNoWarn", 1);
    StoreDword(L"RequestElevation", 0);
    StoreDword(L"LaunchOnCAF", 0);
}

}  // namespace lmvx::test
