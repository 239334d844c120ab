#include "app/privileges.h"

#include <windows.h>

namespace lmvx {
namespace {

int EnablePrivilege(const wchar_t* privilegeName) {
    // The token handle is kept open on purpose: the process holds it for its whole run, and closing it
    // would not undo the adjustment anyway.
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token)) return 0;
    TOKEN_PRIVILEGES privileges{};
    privileges.PrivilegeCount = 1;
    privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (!LookupPrivilegeValueW(nullptr, privilegeName, &privileges.Privileges[0].Luid)) return 0;
    SetLastError(0);
    AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
    // AdjustTokenPrivileges succeeds with ERROR_NOT_ALL_ASSIGNED when the token lacks the privilege.
    return GetLastError() == 0 ? 1 : 0;
}

}  // namespace

int EnableDebugPrivilege() { return EnablePrivilege(SE_DEBUG_NAME); }
int EnableShutdownPrivilege() { return EnablePrivilege(SE_SHUTDOWN_NAME); }

}  // namespace lmvx
