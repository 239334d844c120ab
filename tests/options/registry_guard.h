// The replacement key of the test prefix: removed before and after each test, and made read-only to stand
// for a user without administrative rights.
#pragma once
#include <windows.h>
#include <sddl.h>

#include <string>

#include "common/unique_resource.h"

namespace options_test {

inline constexpr wchar_t kReplacementKey[] =
    L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options\\taskmgr.exe";

struct ReplacementKeyGuard {
    ReplacementKeyGuard() { RegDeleteKeyW(HKEY_LOCAL_MACHINE, kReplacementKey); }
    ~ReplacementKeyGuard() { RegDeleteKeyW(HKEY_LOCAL_MACHINE, kReplacementKey); }
};

// Everyone may read the key, nobody may write it.
inline bool MakeReplacementKeyReadOnly() {
    lmvx::UniqueRegKey key;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, kReplacementKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Put(),
                        nullptr) != ERROR_SUCCESS ||
        !ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;KR;;;WD)", SDDL_REVISION_1, &descriptor, nullptr)) {
        return false;
    }
    lmvx::UniqueLocalMemory owned(descriptor);
    return RegSetKeySecurity(key.Get(), DACL_SECURITY_INFORMATION, descriptor) == ERROR_SUCCESS;
}

// A string value; empty when there is none.
inline std::wstring StoredText(HKEY root, const wchar_t* key, const wchar_t* name) {
    wchar_t value[512] = {};
    DWORD bytes = sizeof value - sizeof(wchar_t);
    return RegGetValueW(root, key, name, RRF_RT_REG_SZ, nullptr, value, &bytes) == ERROR_SUCCESS ? value : L"";
}
inline void StoreText(HKEY root, const wchar_t* key, const wchar_t* name, const std::wstring& value) {
    RegSetKeyValueW(root, key, name, REG_SZ, value.c_str(), static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}
inline std::wstring StoredDebugger() { return StoredText(HKEY_LOCAL_MACHINE, kReplacementKey, L"Debugger"); }

}  // namespace options_test
