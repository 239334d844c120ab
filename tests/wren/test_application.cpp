#include "test_application.h"

#include "wren.h"

bool WriteRawValue(const wchar_t* name, DWORD type, const void* data, DWORD size) {
    return RegSetKeyValueW(HKEY_CURRENT_USER, wren::GetSettingsKeyPath(), name, type, data, size) == ERROR_SUCCESS;
}

RawValue ReadRawValue(const wchar_t* name) {   // the options' values are all small
    RawValue value;
    BYTE data[1024];
    DWORD size = sizeof data;
    value.exists = RegGetValueW(HKEY_CURRENT_USER, wren::GetSettingsKeyPath(), name, RRF_RT_ANY | RRF_NOEXPAND,
                                &value.type, data, &size) == ERROR_SUCCESS;
    if (value.exists) value.bytes.assign(data, data + size);
    return value;
}
