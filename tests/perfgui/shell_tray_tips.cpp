#include "shell_tray_tips.h"

#include <commctrl.h>

namespace perfgui_test {
namespace {

constexpr SIZE_T kTextChars = 512;

struct ShellWindows {
    DWORD shellPid;
    std::vector<HWND> tooltips;
};

BOOL CALLBACK CollectTooltips(HWND window, LPARAM lParam) {
    auto* found = reinterpret_cast<ShellWindows*>(lParam);
    DWORD pid = 0;
    GetWindowThreadProcessId(window, &pid);
    wchar_t className[64] = {};
    GetClassNameW(window, className, 64);
    if (pid == found->shellPid && lstrcmpiW(className, TOOLTIPS_CLASSW) == 0) found->tooltips.push_back(window);
    return TRUE;
}

}  // namespace

std::vector<std::wstring> ShellTrayTips() {
    std::vector<std::wstring> tips;
    HWND tray = FindWindowW(L"Shell_TrayWnd", nullptr);
    if (!tray) return tips;
    ShellWindows found{0, {}};
    GetWindowThreadProcessId(tray, &found.shellPid);
    EnumWindows(CollectTooltips, reinterpret_cast<LPARAM>(&found));

    // One block in the shell's memory: the request record, then room for the text.
    HANDLE shell = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, found.shellPid);
    auto* block = shell ? static_cast<BYTE*>(VirtualAllocEx(shell, nullptr, sizeof(TTTOOLINFOW) + kTextChars * sizeof(wchar_t),
                                                             MEM_COMMIT, PAGE_READWRITE))
                        : nullptr;
    auto* remoteText = reinterpret_cast<wchar_t*>(block + sizeof(TTTOOLINFOW));
    for (HWND tooltip : block ? found.tooltips : std::vector<HWND>{}) {
        const int count = static_cast<int>(SendMessageW(tooltip, TTM_GETTOOLCOUNT, 0, 0));
        for (int index = 0; index < count; ++index) {
            TTTOOLINFOW info{};
            info.cbSize = sizeof info;
            info.lpszText = remoteText;
            const wchar_t empty = 0;
            TTTOOLINFOW back{};
            wchar_t text[kTextChars] = {};
            if (WriteProcessMemory(shell, block, &info, sizeof info, nullptr) &&
                WriteProcessMemory(shell, remoteText, &empty, sizeof empty, nullptr) &&
                SendMessageW(tooltip, TTM_ENUMTOOLSW, index, reinterpret_cast<LPARAM>(block)) &&
                ReadProcessMemory(shell, block, &back, sizeof back, nullptr) && back.lpszText == remoteText &&
                ReadProcessMemory(shell, remoteText, text, sizeof text - sizeof(wchar_t), nullptr))
                tips.emplace_back(text);
        }
    }
    if (block) VirtualFreeEx(shell, block, 0, MEM_RELEASE);
    if (shell) CloseHandle(shell);
    return tips;
}

}  // namespace perfgui_test
