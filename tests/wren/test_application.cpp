#include "test_application.h"

#include "wren.h"

ScopedTestApplication::ScopedTestApplication(const wchar_t* name)
    : applicationKey_(std::wstring(L"Software\\Orvane Software\\") + name) {
    RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());   // leftovers of an aborted run
    wren::SetAppInfo(L"Orvane Test Application", name, L"1.0", 1000, L"test");
    wren::PostInit();
}

ScopedTestApplication::~ScopedTestApplication() {
    // The shared company key stays: other test programs may be creating their own keys below it right now.
    RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());
}

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
