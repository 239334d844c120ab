// The program's notification-area icon: the CPU usage level picture, the tip and the tray menu.
#pragma once
#include <windows.h>

#include <array>

#include "common/unique_resource.h"
#include "finch.h"
#include "perf/cpu_level.h"

namespace kestrel {
class PM_PERFMONSOURCE;
}

namespace lmvx::perf {

inline constexpr int kTrayIconId = 1035;
inline constexpr UINT kTrayCallbackMessage = 4500;
inline constexpr wchar_t kTrayTip[] = L"Lumivex 2008";

class PerfPopup;

class TrayIcon {
public:
    TrayIcon() = default;
    ~TrayIcon();
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    // Loads the eleven level pictures, creates the icon with the program's icon and shows it.
    int TrayInit(HWND owner, HICON firstIcon, kestrel::PM_PERFMONSOURCE* source, HINSTANCE instance);
    // Applies "ShowTrayIcon": shown when on, removed at once when off.
    void ApplyShowOption();
    // Once per sample (sampling thread): swaps the picture only when the usage level changed.
    void TrayUpdate();
    // The same step with a given usage; TrayUpdate() reads the source and calls this.
    void ShowUsage(unsigned usagePercent);
    // The main window closes: the icon goes away.
    void TrayShutdown();

    // The level pictures, shared with the status bar's CPU pane.
    HICON LevelIcon(int level) const;
    int LastLevel() const { return tracker_.Last(); }
    unsigned SetIconCalls() const { return setIconCalls_; }
    UIP_SYSTRAYICON& Icon() { return icon_; }

private:
    HWND owner_ = nullptr;
    kestrel::PM_PERFMONSOURCE* source_ = nullptr;
    std::array<UniqueIcon, kCpuLevelCount> levelIcons_;
    CpuLevelTracker tracker_{-1};   // -1: the first sample always sets a picture
    unsigned setIconCalls_ = 0;
    UIP_SYSTRAYICON icon_;
};

// Callback message 4500 (lParam: the mouse message): hover shows the CPU pop-up above the taskbar, a double
// click shows or hides the main window, a right click opens the tray menu.
void OnTrayCallback(HWND mainWindow, LPARAM mouseMessage, PerfPopup& cpuPopup);

// WM_SIZE of the main window: with "HideWhenMinimized" on, a minimised main window leaves the taskbar
// and is reached through the tray icon.
void HideWhenMinimized(HWND mainWindow, WPARAM sizeType);

}  // namespace lmvx::perf
