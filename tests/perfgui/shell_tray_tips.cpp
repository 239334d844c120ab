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

// Memory in another process, freed with the object.
class RemoteBlock {
public:
    RemoteBlock(DWORD pid, SIZE_T size)
        : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, pid)) {
        if (process_) {
            address_ = static_cast<BYTE*>(VirtualAllocEx(process_, nullptr, size, MEM_COMMIT, PAGE_READWRITE));
        }
    }
    ~RemoteBlock() {
        if (address_) VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
        if (process_) CloseHandle(process_);
    }
    RemoteBlock(const RemoteBlock&) = delete;
    RemoteBlock& operator=(const RemoteBlock&) = delete;

    BYTE* Address() const { return address_; }
    bool Write(SIZE_T offset, const void* data, SIZE_T size) const {
        return WriteProcessMemory(process_, address_ + offset, data, size, nullptr) != FALSE;
    }
    bool Read(SIZE_T offset, void* data, SIZE_T size) const {
        return ReadProcessMemory(process_, address_ + offset, data, size, nullptr) != FALSE;
    }

private:
    HANDLE process_;
    BYTE* address_ = nullptr;
};

}  // namespace

std::vector<std::wstring> ShellTrayTips() {
    std::vector<std::wstring> tips;
    HWND tray = FindWindowW(L"Shell_TrayWnd", nullptr);
    if (!tray) return tips;
    ShellWindows found{0, {}};
    GetWindowThreadProcessId(tray, &found.shellPid);
    EnumWindows(CollectTooltips, reinterpret_cast<LPARAM>(&found));

    RemoteBlock block(found.shellPid, sizeof(TTTOOLINFOW) + kTextChars * sizeof(wchar_t));
    if (!block.Address()) return tips;
    auto* remoteText = reinterpret_cast<wchar_t*>(block.Address() + sizeof(TTTOOLINFOW));
    for (HWND tooltip : found.tooltips) {
        const int count = static_cast<int>(SendMessageW(tooltip, TTM_GETTOOLCOUNT, 0, 0));
        for (int index = 0; index < count; ++index) {
            TTTOOLINFOW info{};
            info.cbSize = sizeof info;
            info.lpszText = remoteText;
            const wchar_t empty = 0;
            if (!block.Write(0, &info, sizeof info) || !block.Write(sizeof info, &empty, sizeof empty)) continue;
            if (!SendMessageW(tooltip, TTM_ENUMTOOLSW, index, reinterpret_cast<LPARAM>(block.Address()))) continue;
            TTTOOLINFOW back{};
            wchar_t text[kTextChars] = {};
            if (!block.Read(0, &back, sizeof back) || back.lpszText != remoteText) continue;
            if (!block.Read(sizeof info, text, sizeof text - sizeof(wchar_t))) continue;
            tips.emplace_back(text);
        }
    }
    return tips;
}

}  // namespace perfgui_test
