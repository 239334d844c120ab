#include "perf/perf_displays.h"

#include <commctrl.h>

#include "app/lmvx.h"
#include "perf/sampler.h"
#include "proclist/refresh_cycle.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::perf {

void CreateTrayIcon(PerfDisplays& displays, HWND mainWindow, HICON smallIcon) {
    displays.tray.TrayInit(mainWindow, smallIcon, g_perfMonSource, wren::GetStoredInstance());
    displays.tray.ApplyShowOption();
}

void CreatePerfPopups(PerfDisplays& displays, HWND mainWindow) {
    displays.cpuPopup.Create(mainWindow, PopupKind::Cpu, PopupSources{&g_sysPerfInfo, &g_cpuGraph, g_popupBrushDark});
    displays.memoryPopup.Create(mainWindow, PopupKind::Memory,
                                PopupSources{&g_sysPerfInfo, &g_memoryGraph, g_popupBrushDark});
}

void CreateStatusBar(PerfDisplays& displays, HWND mainWindow) {
    StatusBarRecord& record = displays.statusBar;
    record.mainWindow = mainWindow;
    record.cpuPopup = &displays.cpuPopup;
    record.memoryPopup = &displays.memoryPopup;
    record.tray = &displays.tray;
    record.limitedAccess = g_debugPrivilege == 0;
    StatusBarCreate(record);
}

void AddPerfDisplayHooks(PerfDisplays& displays, proclist::RefreshHooks& hooks) {
    hooks.sampleSystem = [&displays] { SamplePerformance([&displays] { displays.tray.TrayUpdate(); }); };
    hooks.updatePerformancePopups = [&displays] {
        displays.cpuPopup.PopupRefresh();
        displays.memoryPopup.PopupRefresh();
    };
    hooks.updateStatusBar = [&displays] { StatusBarUpdate(displays.statusBar); };
}

bool OnPerfDisplayMessage(PerfDisplays& displays, HWND mainWindow, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case kTrayCallbackMessage:
        OnTrayCallback(mainWindow, lParam, displays.cpuPopup);
        return true;
    case kStatusBarMouseMessage:
        if (wParam == WM_MOUSEMOVE) {
            StatusBarOnMouseMove(displays.statusBar, static_cast<short>(LOWORD(lParam)),
                                 static_cast<short>(HIWORD(lParam)));
        }
        return true;
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->idFrom == IDC_STATUS_BAR && header->code == NM_CLICK) {
            StatusBarOnPaneClick(displays.statusBar, static_cast<int>(reinterpret_cast<const NMMOUSE*>(lParam)->dwItemSpec));
        }
        return false;
    }
    case WM_SIZE:
        StatusBarLayout(displays.statusBar);
        HideWhenMinimized(mainWindow, wParam);
        return false;
    case WM_MOVE:
        StatusBarPlaceNotice(displays.statusBar);
        return false;
    case WM_TIMER:
        if (wParam == kNoticeTimer) StatusBarHideNotice(displays.statusBar);
        return false;
    default:
        return false;
    }
}

}  // namespace lmvx::perf
