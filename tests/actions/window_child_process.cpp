#include "window_child_process.h"

namespace actions_test {

namespace {

std::wstring ChildPath() {
    wchar_t self[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::wstring path(self, length);
    return path.substr(0, path.find_last_of(L"\\/") + 1) + L"lmvx_window_child.exe";
}

}  // namespace

std::vector<HWND> VisibleWindowsOf(DWORD pid) {
    struct Search {
        DWORD pid;
        std::vector<HWND> windows;
    } search{pid, {}};
    EnumWindows(
        [](HWND window, LPARAM context) -> BOOL {
            auto* search = reinterpret_cast<Search*>(context);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == search->pid && IsWindowVisible(window)) search->windows.push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.windows;
}

WindowChild::WindowChild(const std::vector<std::wstring>& titles, bool firstMinimized) {
    std::wstring commandLine = L"\"" + ChildPath() + L"\"";
    if (firstMinimized) commandLine += L" --minimized";
    for (const std::wstring& title : titles) commandLine += L" \"" + title + L"\"";
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        return;
    CloseHandle(process.hThread);
    process_ = process.hProcess;
    pid_ = process.dwProcessId;
    WaitForInputIdle(process_, 10000);
    for (int tries = 0; tries < 500 && VisibleWindowsOf(pid_).size() < titles.size(); ++tries) Sleep(20);
}

WindowChild::~WindowChild() {
    if (process_ == nullptr) return;
    TerminateProcess(process_, 0);
    WaitForSingleObject(process_, 10000);
    CloseHandle(process_);
}

HWND WindowChild::WindowTitled(const std::wstring& title) const {
    for (HWND window : VisibleWindowsOf(pid_)) {
        wchar_t text[256] = {};
        GetWindowTextW(window, text, 256);
        if (title == text) return window;
    }
    return nullptr;
}

int WindowChild::WaitForExitCode(DWORD milliseconds) const {
    if (process_ == nullptr || WaitForSingleObject(process_, milliseconds) != WAIT_OBJECT_0) return -1;
    DWORD exitCode = 0;
    GetExitCodeProcess(process_, &exitCode);
    return static_cast<int>(exitCode);
}

}  // namespace actions_test
