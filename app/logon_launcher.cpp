#include "app/logon_launcher.h"

#include <windows.h>

#include "common/unique_resource.h"

namespace lmvx {
namespace {

constexpr const wchar_t* kRunKey = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr const wchar_t* kRunValue = L"Lumivex Launcher";
constexpr const wchar_t* kLauncherCommand = L"lvLaunch.exe spawn";

bool StartLauncher() {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.wShowWindow = SW_SHOW;
    wchar_t commandLine[] = L"lvLaunch.exe spawn";
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(L"lvLaunch.exe", commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

}  // namespace

std::wstring LauncherCommandFor(const std::wstring& modulePath) {
    const size_t cut = modulePath.find_last_of(L"\\/");
    const std::wstring folder = cut == std::wstring::npos ? std::wstring() : modulePath.substr(0, cut + 1);
    return folder + kLauncherCommand;
}

int SetLogonLauncher(int enable) {
    wchar_t modulePath[512] = {};
    GetModuleFileNameW(nullptr, modulePath, 512);
    const std::wstring command = LauncherCommandFor(modulePath);

    if (enable && !StartLauncher()) return 0;

    UniqueRegKey key;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kRunKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key.Put(),
                        nullptr) != ERROR_SUCCESS) {
        return 0;
    }
    LSTATUS status;
    if (enable) {
        status = RegSetValueExW(key.Get(), kRunValue, 0, REG_SZ, reinterpret_cast<const BYTE*>(command.c_str()),
                                static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
    } else {
        status = RegDeleteValueW(key.Get(), kRunValue);
    }
    return status == ERROR_SUCCESS ? 1 : 0;
}

}  // namespace lmvx
