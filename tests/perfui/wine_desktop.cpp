#include "tests/perfui/wine_desktop.h"

#include <commctrl.h>

#include <vector>

namespace lmvx::test {
namespace {

// Wine draws a desktop of this size with a taskbar for a desktop named here.
void DescribeTestDesktop() {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Wine\\Explorer\\Desktops", 0, nullptr, 0, KEY_SET_VALUE,
                        nullptr, &key, nullptr) != ERROR_SUCCESS) {
        return;
    }
    const wchar_t size[] = L"1280x800";
    RegSetValueExW(key, kTestDesktopName, 0, REG_SZ, reinterpret_cast<const BYTE*>(size), sizeof(size));
    RegCloseKey(key);
}

bool OnTestDesktop() {
    wchar_t name[128] = {};
    DWORD needed = 0;
    HDESK desktop = GetThreadDesktop(GetCurrentThreadId());
    if (!GetUserObjectInformationW(desktop, UOI_NAME, name, sizeof(name), &needed)) return false;
    return lstrcmpiW(name, kTestDesktopName) == 0;
}

}  // namespace

bool RelaunchOnTestDesktop(int& exitCode) {
    if (OnTestDesktop()) return false;
    DescribeTestDesktop();
    std::wstring desktop = kTestDesktopName;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.lpDesktop = desktop.data();
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    std::wstring commandLine = GetCommandLineW();
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process)) {
        exitCode = 1;
        return true;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    exitCode = static_cast<int>(code);
    return true;
}

HWND TaskbarWindow() {
    return FindWindowW(L"Shell_TrayWnd", nullptr);
}

bool HasNotificationArea() {
    for (int i = 0; i < 50 && !TaskbarWindow(); ++i) Sleep(100);
    return TaskbarWindow() != nullptr;
}

bool WaitForTrayTip(const std::wstring& tip, DWORD timeoutMs) {
    const DWORD start = GetTickCount();
    do {
        DWORD shellPid = 0;
        GetWindowThreadProcessId(TaskbarWindow(), &shellPid);
        struct Search {
            DWORD pid;
            const std::wstring* tip;
            bool found;
        } search{shellPid, &tip, false};
        auto visit = [](HWND window, LPARAM param) -> BOOL {
            auto* s = reinterpret_cast<Search*>(param);
            DWORD pid = 0;
            GetWindowThreadProcessId(window, &pid);
            if (pid != s->pid) return TRUE;
            wchar_t text[256] = {};
            GetWindowTextW(window, text, 256);
            if (*s->tip == text) s->found = true;
            return s->found ? FALSE : TRUE;
        };
        EnumWindows(visit, reinterpret_cast<LPARAM>(&search));
        if (!search.found) EnumChildWindows(TaskbarWindow(), visit, reinterpret_cast<LPARAM>(&search));
        if (search.found) return true;
        Sleep(50);
    } while (GetTickCount() - start < timeoutMs);
    return false;
}

}  // namespace lmvx::test
