#include "perf/tray_icon.h"

#include "app/option_keys.h"
#include "kestrel.h"
#include "mainwnd/tray_menu.h"
#include "perf/perf_popup.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::perf {

TrayIcon::~TrayIcon() {
    TrayShutdown();
}

int TrayIcon::TrayInit(HWND owner, HICON firstIcon, kestrel::PM_PERFMONSOURCE* source, HINSTANCE instance) {
    owner_ = owner;
    source_ = source;
    const auto& ids = CpuLevelIconIds();
    for (int level = 0; level < kCpuLevelCount; ++level) {
        levelIcons_[level].Reset(static_cast<HICON>(
            LoadImageW(instance, MAKEINTRESOURCEW(ids[level]), IMAGE_ICON, 16, 16, LR_CREATEDIBSECTION)));
    }
    tracker_ = CpuLevelTracker(-1);
    icon_.Init(owner, firstIcon, kTrayTip, kTrayIconId, kTrayCallbackMessage);
    icon_.Show();   // fails without a notification area; the program runs on without the icon
    return 1;
}

void TrayIcon::ApplyShowOption() {
    const auto& option = options::ShowTrayIcon;
    if (wren::regOptions.GetOptionBOOL(option.name, option.defaultValue)) {
        icon_.Show();
    } else {
        icon_.Delete();
    }
}

void TrayIcon::TrayUpdate() {
    if (source_) ShowUsage(source_->GetSystemProcessorUsage());
}

void TrayIcon::ShowUsage(unsigned usagePercent) {
    // No call to the shell while the level stays the same.
    if (!tracker_.Change(CpuLevelFromUsage(usagePercent))) return;
    ++setIconCalls_;
    icon_.SetIcon(LevelIcon(tracker_.Last()));
}

void TrayIcon::TrayShutdown() {
    icon_.Delete();
    for (int level = 0; level < kCpuLevelCount - 1; ++level) levelIcons_[level].Reset();
    // Intended: the level 10 picture is left to the end of the process.
    levelIcons_[kCpuLevelCount - 1].Release();
}

HICON TrayIcon::LevelIcon(int level) const {
    if (level < 0 || level >= kCpuLevelCount) return nullptr;
    return levelIcons_[level].Get();
}

void OnTrayCallback(HWND mainWindow, LPARAM mouseMessage, PerfPopup& cpuPopup) {
    switch (static_cast<UINT>(mouseMessage)) {
    case WM_MOUSEMOVE: {
        const auto& option = options::ShowTrayPerfWnd;
        if (wren::regOptions.GetOptionBOOL(option.name, option.defaultValue)) cpuPopup.PopupShow(nullptr);
        break;
    }
    case WM_LBUTTONDBLCLK:
        SendMessageW(mainWindow, WM_COMMAND, IDM_TRAY_SHOW_HIDE, 0);
        break;
    case WM_RBUTTONUP: {
        TrayMenuPopup popup;
        popup.window = cpuPopup.Window();
        popup.setMenuOpen = [&cpuPopup](bool open) { cpuPopup.SetMenuOpen(open); };
        const unsigned command = ShowTrayMenu(mainWindow, popup);
        SendMessageW(mainWindow, WM_COMMAND, command, 0);
        break;
    }
    default:
        break;
    }
}

void HideWhenMinimized(HWND mainWindow, WPARAM sizeType) {
    if (sizeType != SIZE_MINIMIZED) return;
    const auto& option = options::HideWhenMinimized;
    if (!wren::regOptions.GetOptionBOOL(option.name, option.defaultValue)) return;
    const bool wasVisible = IsWindowVisible(mainWindow) != FALSE;
    ShowWindow(mainWindow, SW_HIDE);
    if (wasVisible) {
        // Read the placement again so that a restore goes back to where the window was before minimising.
        WINDOWPLACEMENT placement{};
        placement.length = sizeof(placement);
        GetWindowPlacement(mainWindow, &placement);
    }
}

}  // namespace lmvx::perf
