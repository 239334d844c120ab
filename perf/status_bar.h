// The main window's status bar (control 110): process count, CPU usage with its level picture, committed
// memory, a spare icon pane, the limited-access notice pane and a filler. Hovering the CPU or memory pane
// shows that pop-up; a click on them opens a small menu.
#pragma once
#include <windows.h>

#include <functional>

#include "common/record_tag.h"
#include "perf/cpu_level.h"

namespace lmvx::perf {

class PerfPopup;
class TrayIcon;

// Forwarded mouse moves over the bar: WM_USER + 40 with wParam WM_MOUSEMOVE and the bar's lParam.
inline constexpr UINT kStatusBarMouseMessage = WM_USER + 40;
inline constexpr UINT_PTR kNoticeTimer = 4003;   // the main window's timer that hides the notice

inline constexpr DWORD kStatusBarTag = 0x53424152;      // "SBAR"

struct StatusBarRecord {
    DWORD signature = kRecordSignature;
    DWORD typeTag = kStatusBarTag;
    const void* creator = nullptr;
    DWORD size = sizeof(StatusBarRecord);

    HWND bar = nullptr;
    HWND notice = nullptr;
    HWND mainWindow = nullptr;
    WNDPROC previousProc = nullptr;

    // What the bar works with, set by the main window before StatusBarCreate.
    PerfPopup* cpuPopup = nullptr;
    PerfPopup* memoryPopup = nullptr;
    const TrayIcon* tray = nullptr;   // the level pictures
    bool limitedAccess = false;       // the program runs without full access to the system
    // The main window's limited-access menu; returns the chosen command (0: none).
    std::function<unsigned(POINT at)> limitedAccessMenu;

    CpuLevelTracker cpuLevel{0};   // starts at 0: pane 1 keeps its first picture until 10 %
};

bool IsStatusBarRecord(const StatusBarRecord* record);

struct StatusFigures {
    unsigned processCount = 0;
    unsigned cpuUsagePercent = 0;
    unsigned commitKB = 0;
};

int StatusBarCreate(StatusBarRecord& record);
void StatusBarLayout(StatusBarRecord& record);
// Once per view refresh (any thread): texts only where they changed, the level picture on a level change.
void StatusBarUpdate(StatusBarRecord& record, const StatusFigures& figures);
// The same with the figures of the performance source.
void StatusBarUpdate(StatusBarRecord& record);
void StatusBarPlaceNotice(StatusBarRecord& record);
void StatusBarHideNotice(StatusBarRecord& record);
void StatusBarOnPaneClick(StatusBarRecord& record, int pane);
void StatusBarOnMouseMove(StatusBarRecord& record, int x, int y);
unsigned StatusBarCpuMenu(StatusBarRecord& record);
unsigned StatusBarMemMenu(StatusBarRecord& record);

}  // namespace lmvx::perf
