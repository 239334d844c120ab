#include "refresh_cycle.h"

#include <optional>

#include "app/option_keys.h"
#include "dialog_ids.h"
#include "finch.h"
#include "menu_builder.h"
#include "process_list_view.h"
#include "refresh_rates.h"
#include "string_ids.h"
#include "wren.h"

namespace proclist {
namespace {

namespace options = lmvx::options;

constexpr int kViewMenuPosition = 1;
constexpr UINT kRefreshRateMenuPosition = 1;

}  // namespace

RefreshCycle::~RefreshCycle() {
    Stop();
}

void RefreshCycle::Init(HWND mainWindow, RefreshHooks hooks) {
    mainWindow_ = mainWindow;
    processList_ = GetDlgItem(mainWindow, IDC_PROCESS_LIST);
    hooks_ = std::move(hooks);
}

void RefreshCycle::LoadRate() {
    SetRate(wren::regOptions.GetOptionDWORD(options::UpdateInterval.name, options::UpdateInterval.defaultValue));
}

void RefreshCycle::SetRate(unsigned periodMs) {
    if (hooks_.setSamplerInterval) hooks_.setSamplerInterval(periodMs, periodMs / 2);
    provider_.SetUpdateInterval(periodMs);
    period_ = periodMs;
    RebuildRateMenu();
}

bool RefreshCycle::OnRateCommand(unsigned commandId) {
    const auto period = PeriodOfRateCommand(commandId);
    if (!period) return false;
    SetRate(*period);
    return true;
}

void RefreshCycle::SavePeriod() const {
    wren::regOptions.SetOptionDWORD(options::UpdateInterval.name, EffectivePeriod(period_));
}

void RefreshCycle::RebuildRateMenu() const {
    HMENU viewMenu = GetSubMenu(GetMenu(mainWindow_), kViewMenuPosition);
    if (!viewMenu) return;
    ReplacePopupAt(viewMenu, kRefreshRateMenuPosition, CreatePopupFromItems(RateMenuItems(period_)),
                   UIL_LangModule.GetLangString(IDS_REFRESH_RATE));
}

bool RefreshCycle::Start() {
    if (thread_ || !mainWindow_) return false;
    const UINT period = EffectivePeriod(period_);
    SetTimer(mainWindow_, kRestoreHotKeyTimer, period, nullptr);
    SetTimer(mainWindow_, kRearmTimer, period, nullptr);
    SetTimer(mainWindow_, kSpareTimer, period, nullptr);
    SetTimer(mainWindow_, kDetailsPaneTimer, kDetailsPaneTimerPeriod, nullptr);
    stopping_ = false;
    thread_.Reset(CreateThread(nullptr, 0, ThreadMain, this, 0, nullptr));
    return static_cast<bool>(thread_);
}

void RefreshCycle::Stop() {
    if (!thread_) return;
    stopping_ = true;
    // The thread may be inside SendMessage to this very thread: keep handling sent messages while waiting.
    const HANDLE thread = thread_.Get();
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_SENDMESSAGE) == WAIT_OBJECT_0 + 1) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
    thread_.Reset();
}

DWORD WINAPI RefreshCycle::ThreadMain(void* self) {
    static_cast<RefreshCycle*>(self)->RunCycles();
    return 0;
}

void RefreshCycle::RunCycles() {
    do {
        const DWORD cycleStart = GetTickCount();
        RunOneCycle();
        WaitForPeriod(cycleStart);
    } while (!stopping_ && IsWindow(mainWindow_));
}

void RefreshCycle::RunOneCycle() {
    UpdateProvider();
    if (hooks_.sampleSystem) hooks_.sampleSystem();
    if (hooks_.updatePerformancePopups) hooks_.updatePerformancePopups();
    if (hooks_.updateSelectionView) hooks_.updateSelectionView(processList_);
    if (stopping_ || !IsWindowVisible(mainWindow_)) return;  // hidden in the tray: data only, no views
    // Intended asymmetry: in front, the views refresh right here; otherwise the UI thread does it
    // while this thread waits.
    if (GetForegroundWindow() == mainWindow_) {
        RunViewRefresh();
    } else {
        SendMessageW(mainWindow_, WM_USER, kViewRefreshRequest, 0);
    }
}

void RefreshCycle::UpdateProvider() {
    // Not while the list refreshes on the UI thread: its sort and its copy of the rows read one snapshot.
    ProcessListView* list = ProcessListView::FromControl(processList_);
    std::optional<RefreshGate::Pass> pass;
    if (list) pass.emplace(list->GetRefreshGate());
    // The only call of Update() in the program: every reader of this cycle sees the new snapshot.
    provider_.Update();
}

void RefreshCycle::WaitForPeriod(DWORD cycleStart) const {
    // A 1 ms poll, re-reading the period each time, so a rate change applies within the current cycle
    // and the period counts from the start of the cycle's work.
    while (!stopping_ && GetTickCount() - cycleStart < EffectivePeriod(period_)) Sleep(1);
}

void RefreshCycle::RunViewRefresh() {
    if (ProcessListView* list = ProcessListView::FromControl(processList_)) list->Refresh();
    if (hooks_.refreshDetailsViews) hooks_.refreshDetailsViews(processList_);
    if (hooks_.updateStatusBar) hooks_.updateStatusBar();
    if (hooks_.rebuildProcessMenu) hooks_.rebuildProcessMenu();
}

bool RefreshCycle::OnRefreshMessage(WPARAM wParam) {
    if (wParam != kViewRefreshRequest) return false;
    if (!stopping_) RunViewRefresh();  // while stopping, the main window's views may already be gone
    return true;
}

void RefreshCycle::OnTimer(UINT_PTR timerId) {
    switch (timerId) {
    case kRestoreHotKeyTimer:
        if (IsRestoreHotKeyDown(readKeyState_)) {
            ShowWindow(mainWindow_, SW_SHOW);
            if (IsIconic(mainWindow_)) ShowWindow(mainWindow_, SW_SHOWNORMAL);
        }
        break;
    case kRearmTimer:
        KillTimer(mainWindow_, kRearmTimer);
        SetTimer(mainWindow_, kRearmTimer, EffectivePeriod(period_), nullptr);
        break;
    case kSpareTimer:
        break;
    case kDetailsPaneTimer:
        if (hooks_.detailsPanePeriodic) hooks_.detailsPanePeriodic();
        break;
    default:
        break;
    }
}

}  // namespace proclist
