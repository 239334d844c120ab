// The option store's key read and written directly, bypassing the store, under the registered test application.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

#include "registered_application.h"

using ScopedTestApplication = lmvx_test::ScopedRegisteredApplication;

struct RawValue {
    bool exists = false;
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

// Direct registry access to the option store's key, bypassing the store.
bool WriteRawValue(const wchar_t* name, DWORD type, const void* data, DWORD size);
RawValue ReadRawValue(const wchar_t* name);
