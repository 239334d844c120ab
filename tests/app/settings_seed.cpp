#include "settings_seed.h"

namespace lmvx::test {

void StoreDword(const wchar_t* name, DWORD value) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kSettingsKey, name, REG_DWORD, &value, sizeof value);
}

void StoreBinary(const wchar_t* name, const void* data, DWORD size) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kSettingsKey, name, REG_BINARY, data, size);
}

void DeleteSetting(const wchar_t* name) { RegDeleteKeyValueW(HKEY_CURRENT_USER, kSettingsKey, name); }

std::optional<DWORD> ReadDword(const wchar_t* name) {
    DWORD value = 0, size = sizeof value;
    if (RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, name, RRF_RT_REG_DWORD, nullptr, &value, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return value;
}

std::vector<BYTE> ReadBinary(const wchar_t* name) {
    std::vector<BYTE> data(4096);
    DWORD size = static_cast<DWORD>(data.size());
    if (RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, name, RRF_RT_REG_BINARY, nullptr, data.data(), &size) != ERROR_SUCCESS) {
        size = 0;
    }
    data.resize(size);
    return data;
}

void SeedQuietStart(LANGID language) {
    StoreDword(L"LanguageID", language);
    StoreDword(L"ShutdownPrivilegeNoWarn", 1);
    StoreDword(L"RequestElevation", 0);
    StoreDword(L"LaunchOnCAF", 0);
}

}  // namespace lmvx::test
