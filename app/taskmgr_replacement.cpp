#include "app/taskmgr_replacement.h"

#include <windows.h>
#include <shlwapi.h>

#include <cwchar>

#include "app/taskmgr_replacement_rules.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr const wchar_t* kReplacementKey =
    L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options\\taskmgr.exe";
constexpr const wchar_t* kDebuggerValue = L"Debugger";
constexpr DWORD kPathCapacity = 512;

struct OwnQuotedPath {
    wchar_t text[kPathCapacity] = {};
    OwnQuotedPath() {
        GetModuleFileNameW(nullptr, text, kPathCapacity);
        PathQuoteSpacesW(text);
    }
};

UniqueRegKey CreateReplacementKey() {
    UniqueRegKey key;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, kReplacementKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key.Put(),
                        nullptr) != ERROR_SUCCESS) {
        key.Reset();
    }
    return key;
}

}  // namespace

int SetTaskManagerReplacementFor(const wchar_t* quotedPath, int enable, bool windows2000) {
    UniqueRegKey key = CreateReplacementKey();
    if (!key) return 0;
    if (!enable) {
        // A missing value is what disabling wants: success either way.
        RegDeleteValueW(key.Get(), kDebuggerValue);
        return 1;
    }
    const size_t length = std::wcslen(quotedPath);
    if (windows2000 && QuotedPathTooLongForWindows2000(length)) {
        UIP_ShowWarning(nullptr, UIL_LangModule.GetLangString(IDS_TASKMGR_CANNOT_REPLACE),
                        UIL_LangModule.GetLangString(IDS_TASKMGR_PATH_TOO_LONG), wren::GetAppName());
        return 1;
    }
    const LSTATUS status = RegSetValueExW(key.Get(), kDebuggerValue, 0, REG_SZ, reinterpret_cast<const BYTE*>(quotedPath),
                                          static_cast<DWORD>((length + 1) * sizeof(wchar_t)));
    return status == ERROR_SUCCESS ? 1 : 0;
}

int IsTaskManagerReplacedBy(const wchar_t* quotedPath) {
    UniqueRegKey key = CreateReplacementKey();
    if (!key) return 0;
    wchar_t stored[kPathCapacity / sizeof(wchar_t) + 1] = {};   // 512 bytes and room for a terminator
    DWORD type = 0;
    DWORD bytes = kPathCapacity;
    if (RegQueryValueExW(key.Get(), kDebuggerValue, nullptr, &type, reinterpret_cast<BYTE*>(stored), &bytes) !=
        ERROR_SUCCESS) {
        return 0;
    }
    return IsSameReplacementPath(quotedPath, stored) ? 1 : 0;
}

int SetTaskManagerReplacement(int enable) {
    const OwnQuotedPath own;
    return SetTaskManagerReplacementFor(own.text, enable, wren::IsOSWindows2000() != 0);
}

int IsTaskManagerReplaced() {
    const OwnQuotedPath own;
    return IsTaskManagerReplacedBy(own.text);
}

bool CanWriteReplacementKey() { return static_cast<bool>(CreateReplacementKey()); }

bool CanReadReplacementKey() {
    // Created when missing, so a first replacement on a fresh system is not refused for want of a key.
    UniqueRegKey key;
    return RegCreateKeyExW(HKEY_LOCAL_MACHINE, kReplacementKey, 0, nullptr, 0, KEY_READ, nullptr, key.Put(), nullptr) ==
           ERROR_SUCCESS;
}

}  // namespace lmvx
