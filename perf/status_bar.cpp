#include "perf/status_bar.h"

#include <commctrl.h>

#include "app/option_keys.h"
#include "app/shared_icons.h"
#include "finch.h"
#include "perf/perf_popup.h"
#include "perf/popup_text.h"
#include "perf/sampler.h"
#include "perf/status_bar_layout.h"
#include "perf/status_bar_notice.h"
#include "perf/tray_icon.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::perf {
namespace {

constexpr size_t kTextLength = 1024;

StatusBarRecord* RecordOf(HWND bar) {
    auto* record = reinterpret_cast<StatusBarRecord*>(GetWindowLongPtrW(bar, GWLP_USERDATA));
    return IsStatusBarRecord(record) ? record : nullptr;
}

// Forwards every mouse move over the bar to the main window; everything else goes to the bar itself.
LRESULT CALLBACK SubclassProc(HWND bar, UINT message, WPARAM wParam, LPARAM lParam) {
    StatusBarRecord* record = RecordOf(bar);
    if (!record) return DefWindowProcW(bar, message, wParam, lParam);
    if (message == WM_MOUSEMOVE) PostMessageW(record->mainWindow, kStatusBarMouseMessage, WM_MOUSEMOVE, lParam);
    return CallWindowProcW(record->previousProc, bar, message, wParam, lParam);
}

void SetPaneIcon(HWND bar, int pane, HICON icon) {
    SendMessageW(bar, SB_SETICON, pane, reinterpret_cast<LPARAM>(icon));
}

void SetEdges(HWND bar, const StatusBarEdges& edges) {
    SendMessageW(bar, SB_SETPARTS, kStatusBarPaneCount, reinterpret_cast<LPARAM>(edges.data()));
}

// Compare-then-set: an unchanged text is not written, so the pane is not repainted.
void SetPaneText(HWND bar, int pane, UINT formatId, unsigned value) {
    wchar_t text[kTextLength];
    APIP_FormatString(text, sizeof(text), UIL_LangModule.GetLangString(formatId), static_cast<int>(value));
    // The panes only ever hold texts formatted here into buffers of this size, so the read cannot overflow;
    // asking for the length first would cost a second message round trip from the refresh thread.
    wchar_t present[kTextLength] = {};
    SendMessageW(bar, SB_GETTEXTW, pane, reinterpret_cast<LPARAM>(present));
    if (lstrcmpW(present, text) != 0) SendMessageW(bar, SB_SETTEXTW, pane, reinterpret_cast<LPARAM>(text));
}

RECT PaneScreenRect(HWND bar, int pane) {
    RECT rect{};
    SendMessageW(bar, SB_GETRECT, pane, reinterpret_cast<LPARAM>(&rect));
    MapWindowPoints(bar, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool OptionOn(const BoolOption& option) {
    return wren::regOptions.GetOptionBOOL(option.name, option.defaultValue) != 0;
}

struct PaneMenuTexts {
    const wchar_t* toggle;
    const wchar_t* launch;
};

unsigned ShowPaneMenu(StatusBarRecord& record, int pane, const PaneMenuTexts& texts, UINT toggleCommand,
                      bool toggleChecked, UINT launchCommand) {
    HMENU menu = CreatePopupMenu();
    if (!menu) return 0;
    AppendMenuW(menu, MF_STRING | (toggleChecked ? MF_CHECKED : MF_UNCHECKED), toggleCommand, texts.toggle);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, launchCommand, texts.launch);
    SetMenuDefaultItem(menu, launchCommand, FALSE);
    const RECT paneRect = PaneScreenRect(record.bar, pane);
    const unsigned command = static_cast<unsigned>(TrackPopupMenu(
        menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN, paneRect.left, paneRect.bottom, 0, record.mainWindow,
        nullptr));
    DestroyMenu(menu);
    return command;
}

// A pane menu over a pop-up: the pop-up stays away while the menu is open.
void RunPaneMenu(StatusBarRecord& record, PerfPopup* popup, unsigned (*menu)(StatusBarRecord&)) {
    if (popup) {
        popup->SetMenuOpen(true);
        popup->PopupHide();
    }
    const unsigned command = menu(record);
    SendMessageW(record.mainWindow, WM_COMMAND, command, 0);
    if (popup) popup->SetMenuOpen(false);
}

}  // namespace

bool IsStatusBarRecord(const StatusBarRecord* record) {
    return record && record->signature == kRecordSignature && record->typeTag == kStatusBarTag &&
           record->size == sizeof(StatusBarRecord);
}

int StatusBarCreate(StatusBarRecord& record) {
    if (!IsStatusBarRecord(&record)) return 0;
    record.creator = reinterpret_cast<const void*>(&StatusBarCreate);
    record.bar = CreateStatusWindowW(WS_CHILD | WS_VISIBLE, L"", record.mainWindow, IDC_STATUS_BAR);
    if (!record.bar) return 0;
    SetWindowLongPtrW(record.bar, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&record));
    record.previousProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(record.bar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SubclassProc)));
    SetEdges(record.bar, StatusBarCreationEdges());
    SetPaneIcon(record.bar, kPaneProcesses, SharedIconById(IDI_PROCESS).small);
    SetPaneIcon(record.bar, kPaneCpu, SharedIconById(IDI_PERFORMANCE).small);
    SetPaneIcon(record.bar, kPaneMemory, SharedIconById(IDI_MEMORY).small);
    SetPaneIcon(record.bar, kPaneSpare, SharedIconById(IDI_DETAILS_INFO).small);
    if (wren::IsOSVistaOrHigher() && record.limitedAccess) {
        SetPaneIcon(record.bar, kPaneNotice, SharedIconById(IDI_LIMITED_ACCESS).small);
        record.notice = CreateNotice(record.bar, PaneRectInBar(record.bar, kPaneNotice));
        StatusBarPlaceNotice(record);
        ActivateNotice(record.notice, record.bar);
    }
    return 1;
}

void StatusBarLayout(StatusBarRecord& record) {
    if (!IsStatusBarRecord(&record) || !record.bar) return;
    SetWindowPos(record.bar, nullptr, 0, 0, 0, 0, SWP_NOZORDER);
    RECT client{};
    GetClientRect(record.bar, &client);
    StatusBarEdges present{};
    SendMessageW(record.bar, SB_GETPARTS, kStatusBarPaneCount, reinterpret_cast<LPARAM>(present.data()));
    const StatusBarEdges edges = StatusBarLayoutEdges(client.right - client.left);
    if (edges != present) SetEdges(record.bar, edges);
    StatusBarPlaceNotice(record);
}

void StatusBarUpdate(StatusBarRecord& record, const StatusFigures& figures) {
    if (!IsStatusBarRecord(&record) || !record.bar || !IsWindow(record.bar)) return;
    SetPaneText(record.bar, kPaneProcesses, IDS_STATUS_PROCESSES, figures.processCount);
    SetPaneText(record.bar, kPaneCpu, IDS_STATUS_CPU_USAGE, figures.cpuUsagePercent);
    if (record.cpuLevel.Change(CpuLevelFromUsage(figures.cpuUsagePercent)) && record.tray) {
        SetPaneIcon(record.bar, kPaneCpu, record.tray->LevelIcon(record.cpuLevel.Last()));
    }
    SetPaneText(record.bar, kPaneMemory, IDS_STATUS_MEMORY, KilobytesToMegabytes(figures.commitKB));
}

void StatusBarUpdate(StatusBarRecord& record) {
    kestrel::PM_PERFMONSOURCE* source = g_perfMonSource;
    if (!source) return;
    StatusFigures figures;
    figures.processCount = source->GetSystemProcessCount();
    figures.cpuUsagePercent = source->GetSystemProcessorUsage();
    figures.commitKB = source->GetSystemCommitChargeTotalKB();
    StatusBarUpdate(record, figures);
}

void StatusBarPlaceNotice(StatusBarRecord& record) {
    if (!IsStatusBarRecord(&record) || !record.notice) return;
    PlaceNotice(record.notice, PaneScreenRect(record.bar, kPaneNotice));
}

void StatusBarHideNotice(StatusBarRecord& record) {
    if (!IsStatusBarRecord(&record) || !record.notice) return;
    HideNotice(record.notice, record.bar);
}

unsigned StatusBarCpuMenu(StatusBarRecord& record) {
    const PaneMenuTexts texts{
        wren::HardcodeLangString(L"Show CPU Performance Graph", L"CPU Performance Diagramm anzeigen"),
        wren::HardcodeLangString(L"Launch Pulsewright", L"Pulsewright starten")};
    return ShowPaneMenu(record, kPaneCpu, texts, IDM_STATUSBAR_SHOW_CPU, OptionOn(options::StatusBarShowCPUPerf),
                        IDM_TOOL_PULSEWRIGHT);
}

unsigned StatusBarMemMenu(StatusBarRecord& record) {
    const PaneMenuTexts texts{
        wren::HardcodeLangString(L"Show Memory Usage Graph", L"Speicherauslastungs-Diagramm anzeigen"),
        wren::HardcodeLangString(L"Launch Heapwright", L"Heapwright starten")};
    return ShowPaneMenu(record, kPaneMemory, texts, IDM_STATUSBAR_SHOW_MEMORY,
                        OptionOn(options::StatusBarShowMemPerf), IDM_TOOL_HEAPWRIGHT);
}

void StatusBarOnPaneClick(StatusBarRecord& record, int pane) {
    if (!IsStatusBarRecord(&record)) return;
    switch (pane) {
    case kPaneCpu:
        RunPaneMenu(record, record.cpuPopup, StatusBarCpuMenu);
        break;
    case kPaneMemory:
        RunPaneMenu(record, record.memoryPopup, StatusBarMemMenu);
        break;
    case kPaneNotice:
        StatusBarHideNotice(record);
        if (wren::IsOSVistaOrHigher() && record.limitedAccessMenu) {
            const RECT rect = PaneScreenRect(record.bar, kPaneNotice);
            const unsigned command = record.limitedAccessMenu(POINT{rect.left, rect.bottom});
            SendMessageW(record.mainWindow, WM_COMMAND, command, 0);
        }
        break;
    default:
        break;
    }
}

void StatusBarOnMouseMove(StatusBarRecord& record, int x, int y) {
    if (!IsStatusBarRecord(&record) || !record.bar) return;
    const POINT point{x, y};
    RECT cpuPane{}, memoryPane{};
    SendMessageW(record.bar, SB_GETRECT, kPaneCpu, reinterpret_cast<LPARAM>(&cpuPane));
    SendMessageW(record.bar, SB_GETRECT, kPaneMemory, reinterpret_cast<LPARAM>(&memoryPane));
    if (PtInRect(&cpuPane, point)) {
        const RECT anchor = PaneScreenRect(record.bar, kPaneCpu);
        if (record.memoryPopup) record.memoryPopup->PopupHide();
        if (record.cpuPopup && OptionOn(options::StatusBarShowCPUPerf)) record.cpuPopup->PopupShow(&anchor);
    } else if (PtInRect(&memoryPane, point)) {
        const RECT anchor = PaneScreenRect(record.bar, kPaneMemory);
        if (record.cpuPopup) record.cpuPopup->PopupHide();
        PerfPopup* memory = record.memoryPopup;
        if (memory && OptionOn(options::StatusBarShowMemPerf) && !memory->IsMenuOpen() && !memory->IsPinned()) {
            memory->PopupShow(&anchor);
        }
    }
}

}  // namespace lmvx::perf
