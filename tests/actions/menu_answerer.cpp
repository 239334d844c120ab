#include "menu_answerer.h"

#include <utility>

namespace actions_test {

namespace {

constexpr UINT kGetMenuHandle = 0x01E1;   // MN_GETHMENU

HWND VisibleMenuWindowOfThisProcess() {
    HWND found = nullptr;
    EnumWindows(
        [](HWND window, LPARAM context) -> BOOL {
            DWORD pid = 0;
            GetWindowThreadProcessId(window, &pid);
            wchar_t className[16] = {};
            GetClassNameW(window, className, 16);
            if (pid == GetCurrentProcessId() && IsWindowVisible(window) && std::wstring(className) == L"#32768") {
                *reinterpret_cast<HWND*>(context) = window;
                return FALSE;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<SeenMenuItem> ItemsOf(HMENU menu) {
    std::vector<SeenMenuItem> items;
    const UINT defaultId = GetMenuDefaultItem(menu, FALSE, GMDI_USEDISABLED);
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        wchar_t text[256] = {};
        GetMenuStringW(menu, i, text, 256, MF_BYPOSITION);
        const UINT id = GetMenuItemID(menu, i);
        const UINT state = GetMenuState(menu, i, MF_BYPOSITION);
        items.push_back({id, text, (state & MF_GRAYED) != 0, id == defaultId});
    }
    return items;
}

void PressKey(HWND menuWindow, WPARAM key) {
    PostMessageW(menuWindow, WM_KEYDOWN, key, 0);
    PostMessageW(menuWindow, WM_KEYUP, key, 0);
}

}  // namespace

MenuAnswerer::MenuAnswerer(std::wstring choose)
    : choose_(std::move(choose)), stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    thread_ = std::thread([this] { Run(); });
}

MenuAnswerer::~MenuAnswerer() {
    Finish();
    CloseHandle(stop_);
}

std::vector<SeenMenuItem> MenuAnswerer::Finish() {
    SetEvent(stop_);
    if (thread_.joinable()) thread_.join();
    return items_;
}

bool MenuAnswerer::MenuWasShown() {
    Finish();
    return shown_;
}

void MenuAnswerer::Run() {
    HWND menuWindow = nullptr;
    while (menuWindow == nullptr) {
        if (WaitForSingleObject(stop_, 20) != WAIT_TIMEOUT) return;
        menuWindow = VisibleMenuWindowOfThisProcess();
    }
    shown_ = true;
    const HMENU menu = reinterpret_cast<HMENU>(SendMessageW(menuWindow, kGetMenuHandle, 0, 0));
    items_ = ItemsOf(menu);
    size_t position = 0;
    while (position < items_.size() && (choose_.empty() || items_[position].text != choose_)) ++position;
    if (position == items_.size()) {
        PressKey(menuWindow, VK_ESCAPE);
        return;
    }
    for (size_t step = 0; step <= position; ++step) PressKey(menuWindow, VK_DOWN);
    PressKey(menuWindow, VK_RETURN);
}

}  // namespace actions_test
