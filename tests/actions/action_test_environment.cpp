#include "action_test_environment.h"

#include <commctrl.h>

#include "app/lmvx.h"
#include "finch.h"

namespace actions_test {
namespace {

std::wstring WindowsVerb(const std::vector<std::wstring>& titles, bool firstMinimized) {
    std::wstring arguments = firstMinimized ? L"windows --minimized" : L"windows";
    for (const std::wstring& title : titles) arguments += L" \"" + title + L"\"";
    return arguments;
}

void PressKey(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 0);
    PostMessageW(window, WM_KEYUP, key, 0);
}

}  // namespace

void StartTestApplication() {
    UIL_LangModule.Init(GetModuleHandleW(nullptr), L"Lumivex Actions Test", L"test", UIL_LANGMODULE::English);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    lmvx::g_processList.Init();
    RefreshProvider();
}

void RefreshProvider() { lmvx::g_processList.Update(); }

std::wstring ProviderName(unsigned pid, bool company) {
    const int item = lmvx::g_processList.GetItemByPID(pid);
    if (item == -1) return {};
    return company ? lmvx::g_processList.GetItemInfoCompanyName(item) : lmvx::g_processList.GetItemDisplayName(item);
}

std::wstring Text(unsigned id) { return UIL_LangModule.GetLangString(id); }

lmvx::UniqueWindow HiddenOwner() {
    return lmvx::UniqueWindow(CreateWindowExW(0, L"STATIC", L"Lumivex actions test owner", WS_POPUP, 0, 0, 10, 10,
                                              nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
}

bool MenuAnswerer::Answer() {
    constexpr UINT kGetMenuHandle = 0x01E1;   // MN_GETHMENU
    const std::vector<HWND> menus = VisibleWindowsOf(GetCurrentProcessId(), L"#32768");
    if (menus.empty()) return false;
    shown_ = true;
    items_ = lmvx_test::ReadMenu(reinterpret_cast<HMENU>(SendMessageW(menus[0], kGetMenuHandle, 0, 0)));
    size_t position = 0;
    while (position < items_.size() && (choose_.empty() || items_[position].text != choose_)) ++position;
    if (position == items_.size()) {
        PressKey(menus[0], VK_ESCAPE);
        return true;
    }
    for (size_t step = 0; step <= position; ++step) PressKey(menus[0], VK_DOWN);
    PressKey(menus[0], VK_RETURN);
    return true;
}

WindowChild::WindowChild(const std::vector<std::wstring>& titles, bool firstMinimized)
    : child_(WindowsVerb(titles, firstMinimized)) {
    lmvx_test::PumpUntil([&] { return !child_.Started() || VisibleWindowsOf(Pid()).size() >= titles.size(); }, 10000);
}

HWND WindowChild::WindowTitled(const std::wstring& title) const {
    for (HWND window : VisibleWindowsOf(Pid())) {
        wchar_t text[256] = {};
        GetWindowTextW(window, text, 256);
        if (title == text) return window;
    }
    return nullptr;
}

int WindowChild::WaitForExitCode(DWORD milliseconds) const {
    DWORD exitCode = 0;
    if (!child_.WaitForExit(milliseconds) || !GetExitCodeProcess(child_.Handle(), &exitCode)) return -1;
    return static_cast<int>(exitCode);
}

}  // namespace actions_test
