// Registers a test application with the runtime library under a name of its own and removes everything it
// stored, before (leftovers of an aborted run) and after, so that programs running side by side never share
// values. The shared company key stays: other test programs may be creating their own keys below it.
#pragma once
#include <windows.h>

#include <string>

#include "wren.h"

namespace lmvx_test {

class ScopedRegisteredApplication {
public:
    explicit ScopedRegisteredApplication(const wchar_t* name, const wchar_t* title = L"Lumivex Test")
        : applicationKey_(std::wstring(L"Software\\Orvane Software\\") + name) {
        RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());
        wren::SetAppInfo(title, name, L"1.0", 1000, L"test");
        wren::PostInit();
    }
    ~ScopedRegisteredApplication() { RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str()); }
    ScopedRegisteredApplication(const ScopedRegisteredApplication&) = delete;
    ScopedRegisteredApplication& operator=(const ScopedRegisteredApplication&) = delete;

private:
    std::wstring applicationKey_;
};

}  // namespace lmvx_test
