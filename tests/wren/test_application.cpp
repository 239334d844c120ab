#include "test_application.h"

#include "wren.h"

bool WriteRawValue(const wchar_t* name, DWORD type, const void* data, DWORD size) {
    return RegSetKeyValueW(HKEY_CURRENT_USER, wren::GetSettingsKeyPath(), name, type, data, size) == ERROR_SUCCESS;
}

RawValue ReadRawValue(const wchar_t* name) {
    RawValue value;
    DWORD size = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, wren::GetSettingsKeyPath(), name, RRF_RT_ANY | RRF_NOEXPAND, &value.type,
                     nullptr, &size) != ERROR_SUCCESS)
        return value;
    value.bytes.resize(size);
    value.exists = RegGetValueW(HKEY_CURRENT_USER, wren::GetSettingsKeyPath(), name, RRF_RT_ANY | RRF_NOEXPAND,
                                &value.type, value.bytes.data(), &size) == ERROR_SUCCESS;
    value.bytes.resize(size);
    return value;
}

void DeleteRawValue(const wchar_t* name) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, wren::GetSettingsKeyPath(), name);
}
