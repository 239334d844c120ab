#include "program_runner.h"

namespace lmvx::test {

ProgramRunner::~ProgramRunner() {
    if (!process_) return;
    if (WaitForSingleObject(process_, 0) == WAIT_TIMEOUT) {
        TerminateProcess(process_, 1);
        WaitForSingleObject(process_, 5000);
    }
    CloseHandle(process_);
}

bool ProgramRunner::Start(const std::wstring& exePath, const std::wstring& arguments,
                          const std::wstring& workingFolder) {
    std::wstring commandLine = L"\"" + exePath + L"\"";
    if (!arguments.empty()) commandLine += L" " + arguments;
    const size_t cut = exePath.find_last_of(L"\\/");
    const std::wstring folder =
        !workingFolder.empty() ? workingFolder : cut == std::wstring::npos ? std::wstring() : exePath.substr(0, cut);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (!CreateProcessW(exePath.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.empty() ? nullptr : folder.c_str(), &startup, &info)) {
        return false;
    }
    CloseHandle(info.hThread);
    process_ = info.hProcess;
    pid_ = info.dwProcessId;
    return true;
}

HWND ProgramRunner::WaitForWindow(const std::function<bool(HWND)>& matches, DWORD timeoutMs) const {
    struct Search {
        DWORD pid;
        const std::function<bool(HWND)>* matches;
        HWND found;
    };
    const ULONGLONG deadline = GetTickCount64() + timeoutMs;
    do {
        Search search{pid_, &matches, nullptr};
        EnumWindows(
            [](HWND window, LPARAM parameter) -> BOOL {
                auto* s = reinterpret_cast<Search*>(parameter);
                DWORD owner = 0;
                GetWindowThreadProcessId(window, &owner);
                if (owner != s->pid || !IsWindowVisible(window) || !(*s->matches)(window)) return TRUE;
                s->found = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&search));
        if (search.found) return search.found;
        if (WaitForSingleObject(process_, 50) == WAIT_OBJECT_0) return nullptr;
    } while (GetTickCount64() < deadline);
    return nullptr;
}

HWND ProgramRunner::WaitForWindowWithCaption(const std::wstring& caption, DWORD timeoutMs) const {
    return WaitForWindow([&](HWND window) { return WindowText(window) == caption; }, timeoutMs);
}

DWORD ProgramRunner::WaitForExit(DWORD timeoutMs) const {
    if (WaitForSingleObject(process_, timeoutMs) != WAIT_OBJECT_0) return STILL_ACTIVE;
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process_, &code);
    return code;
}

std::wstring ClassName(HWND window) {
    wchar_t name[256] = {};
    GetClassNameW(window, name, 256);
    return name;
}

void PressButton(HWND dialog, int id) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

std::wstring TestBinFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path);
    return folder.substr(0, folder.find_last_of(L"\\/"));
}

}  // namespace lmvx::test
