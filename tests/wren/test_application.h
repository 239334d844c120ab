// Registers a test application with the runtime library and removes everything it stored afterwards.
// Each test program uses a name of its own, so programs running side by side never share values.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

class ScopedTestApplication {
public:
    explicit ScopedTestApplication(const wchar_t* name);
    ~ScopedTestApplication();
    ScopedTestApplication(const ScopedTestApplication&) = delete;
    ScopedTestApplication& operator=(const ScopedTestApplication&) = delete;

private:
    std::wstring applicationKey_;
};

struct RawValue {
    bool exists = false;
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

// Direct registry access to the option store's key, bypassing the store.
bool WriteRawValue(const wchar_t* name, DWORD type, const void* data, DWORD size);
RawValue ReadRawValue(const wchar_t* name);
void DeleteRawValue(const wchar_t* name);
