#include "perf/perf_popup.h"

#include "app/shared_icons.h"
#include "finch.h"
#include "kestrel.h"
#include "perf/perf_popup_frame.h"
#include "perf/popup_layout.h"
#include "perf/popup_text.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::perf {
namespace {

constexpr COLORREF kTextColour = RGB(255, 255, 255);
constexpr COLORREF kBackColour = RGB(0, 0, 0);

struct PopupTexts {
    const wchar_t* caption;
    const wchar_t* firstLabel;
    const wchar_t* secondLabel;
    unsigned short icon;
};

PopupTexts TextsOf(PopupKind kind) {
    if (kind == PopupKind::Cpu) {
        return {wren::HardcodeLangString(L"CPU Usage History", L"Verlauf der CPU Auslastung"),
                wren::HardcodeLangString(L"CPU Usage:", L"CPU Auslastung:"),
                wren::HardcodeLangString(L"Context Switches:", L"Kontextwechsel:"), IDI_PERFORMANCE};
    }
    return {wren::HardcodeLangString(L"Memory Usage History", L"Verlauf der Speicherauslastung"),
            wren::HardcodeLangString(L"Physical Memory:", L"Physikalisch:"),
            wren::HardcodeLangString(L"Paged Memory:", L"Ausgelagert:"), IDI_MEMORY};
}

// The drawing every full view of a system graph uses: the dark fills first (series 2 behind), grid, lines.
void DrawSystemGraph(wren::PERFGRAPH& graph, HWND control) {
    if (!graph.RenderOpen(control, nullptr, 0)) return;
    graph.RenderFill(RGB(128, 128, 0), 2);
    graph.RenderFill(RGB(0, 128, 0), 0);
    graph.RenderFill(RGB(128, 0, 0), 1);
    graph.RenderGrid();
    graph.RenderLine(RGB(0, 255, 0), 0);
    graph.RenderLine(RGB(255, 0, 0), 1);
    graph.RenderLine(RGB(255, 255, 0), 2);
    graph.RenderCloseEx(0);
}

int TaskbarHeight() {
    RECT taskbar{};
    HWND tray = FindWindowW(L"Shell_TrayWnd", nullptr);
    if (!tray || !GetWindowRect(tray, &taskbar)) return 0;
    return taskbar.bottom - taskbar.top;
}

}  // namespace

PerfPopup::~PerfPopup() {
    if (window_ && IsWindow(window_)) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
}

bool PerfPopup::Create(HWND owner, PopupKind kind, const PopupSources& sources) {
    kind_ = kind;
    sources_ = sources;
    window_ = UIL_LangModule.LoadDialogParam(IDD_PERF_POPUP, owner, DialogProc, reinterpret_cast<LPARAM>(this));
    return window_ != nullptr;
}

void PerfPopup::PopupShow(const RECT* anchor) {
    if (!window_ || menuOpen_ || IsPinned()) return;
    SetTimer(window_, kPopupHoverTimer, kPopupTimerPeriod, nullptr);
    anchor_ = anchor ? *anchor : RECT{};
    Position();
    GetCursorPos(&cursorAtShow_);
    PopupRefresh();
    ShowWindow(window_, SW_SHOWNA);
}

void PerfPopup::PopupHide() {
    if (!window_ || IsPinned()) return;
    KillTimer(window_, kPopupHoverTimer);
    ShowWindow(window_, SW_HIDE);
}

bool PerfPopup::IsPinned() const {
    return window_ && (GetWindowLongPtrW(window_, GWL_STYLE) & kPinnedStyleBit) != 0;
}

void PerfPopup::PopupRefresh() {
    if (!window_ || !IsWindow(window_)) return;   // the main window may be closing during a sample
    UpdateTexts();
    DrawGraph(GraphDrawing::IfChanged);
}

void PerfPopup::UpdateTexts() {
    const kestrel::_SYSPERFINFO* counters = sources_.counters;
    if (!counters) return;
    std::wstring first, second;
    if (kind_ == PopupKind::Cpu) {
        first = CpuUsageText(counters->GetCPUUsage());
        second = ContextSwitchText(counters->GetContextSwitchDelta());
    } else {
        const unsigned total = counters->GetPhysicalMemoryTotalKB();
        const unsigned available = counters->GetPhysicalMemoryAvailableKB();
        const unsigned commit = counters->GetCommitChargeTotalKB();
        const unsigned limit = counters->GetCommitChargeLimitKB();
        const unsigned used = total > available ? total - available : 0;
        first = PercentAndMegabytesText(UsedPhysicalPercent(total, available), KilobytesToMegabytes(used));
        second = PercentAndMegabytesText(CommitPercent(commit, limit), KilobytesToMegabytes(commit));
    }
    ShowValue(firstValue_, shownFirst_, first);
    ShowValue(secondValue_, shownSecond_, second);
}

void PerfPopup::ShowValue(HWND control, std::wstring& shown, const std::wstring& text) {
    if (GetCurrentThreadId() == ownThread_) {
        wren::SetWindowTextIfChanged(control, text.c_str());
        std::lock_guard lock(shownLock_);
        shown.clear();
        return;
    }
    {
        std::lock_guard lock(shownLock_);
        if (shown == text) return;   // unchanged: no message, no repaint
        shown = text;
    }
    SetWindowTextW(control, text.c_str());
}

void PerfPopup::DrawGraph(GraphDrawing when) {
    if (!sources_.graph || !graphControl_) return;
    RECT client{};
    GetClientRect(graphControl_, &client);
    // At fast rates most samples move no pixel of the graph (a point is added every 500 ms, and memory
    // figures rarely move a row): such a refresh leaves the picture on screen as it is.
    const unsigned long long signature = sources_.graph->GetPictureSignature(client.right, client.bottom);
    if (when == GraphDrawing::IfChanged && signature != 0 && signature == drawnSignature_) return;
    drawnSignature_ = signature;
    DrawSystemGraph(*sources_.graph, graphControl_);
}

void PerfPopup::Position() {
    RECT outer{};
    GetWindowRect(window_, &outer);
    RECT desktop{};
    GetWindowRect(GetDesktopWindow(), &desktop);
    const PopupPlacementInput input{SIZE{outer.right - outer.left, outer.bottom - outer.top}, desktop, glassFrame_};
    const POINT at = IsEmptyAnchor(anchor_) ? PopupPositionAtTaskbar(TaskbarHeight(), input)
                                            : PopupPositionAnchored(anchor_, input);
    SetWindowPos(window_, nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PerfPopup::PopupInit() {
    ownThread_ = GetCurrentThreadId();
    firstValue_ = GetDlgItem(window_, IDC_POPUP_VALUE_1);
    secondValue_ = GetDlgItem(window_, IDC_POPUP_VALUE_2);
    graphControl_ = GetDlgItem(window_, IDC_POPUP_GRAPH);
    const PopupTexts texts = TextsOf(kind_);
    SetWindowTextW(window_, texts.caption);
    SendDlgItemMessageW(window_, IDC_STATIC, STM_SETICON,
                        reinterpret_cast<WPARAM>(SharedIconById(texts.icon).large), 0);
    SetDlgItemTextW(window_, IDC_POPUP_LABEL_1, texts.firstLabel);
    SetDlgItemTextW(window_, IDC_POPUP_LABEL_2, texts.secondLabel);
    SetUpFrame();
    Position();
    for (int control : {IDC_POPUP_LABEL_1, IDC_POPUP_LABEL_2, IDC_POPUP_VALUE_1, IDC_POPUP_VALUE_2}) {
        wren::Embold(window_, control);
    }
    SetTimer(window_, kPopupRefreshTimer, kPopupTimerPeriod, nullptr);
}

void PerfPopup::SetUpFrame() {
    glassFrame_ = UsesGlassFramePath();
    if (glassFrame_) {
        ExtendGlassFrame(window_);
    } else {
        MakeLayeredFrame(window_);
    }
}

void PerfPopup::OnHoverTimer() {
    POINT cursor{};
    GetCursorPos(&cursor);
    RECT outer{};
    GetWindowRect(window_, &outer);
    const bool moved = cursor.x != cursorAtShow_.x || cursor.y != cursorAtShow_.y;
    if (moved && !PtInRect(&outer, cursor)) {
        PopupHide();
        return;
    }
    SetTimer(window_, kPopupHoverTimer, kPopupTimerPeriod, nullptr);
}

void PerfPopup::Pin() {
    SetWindowLongPtrW(window_, GWL_STYLE, GetWindowLongPtrW(window_, GWL_STYLE) | kPinnedStyleBit);
    SetWindowPos(window_, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    KillTimer(window_, kPopupHoverTimer);
}

void PerfPopup::Unpin() {
    SetWindowLongPtrW(window_, GWL_STYLE, GetWindowLongPtrW(window_, GWL_STYLE) & ~kPinnedStyleBit);
    SetWindowPos(window_, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

INT_PTR PerfPopup::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_TIMER:
        if (wParam == kPopupRefreshTimer) {
            KillTimer(window_, kPopupRefreshTimer);
            if (IsWindowVisible(window_)) PopupRefresh();
            SetTimer(window_, kPopupRefreshTimer, kPopupTimerPeriod, nullptr);
        } else if (wParam == kPopupHoverTimer) {
            OnHoverTimer();
        }
        return TRUE;
    case WM_NCHITTEST:
        // The whole pop-up is a handle to drag it by.
        if (DefWindowProcW(window_, message, wParam, lParam) == HTCLIENT) {
            SetWindowLongPtrW(window_, DWLP_MSGRESULT, HTCAPTION);
            return TRUE;
        }
        return FALSE;
    case WM_NCLBUTTONDOWN:
        Pin();
        return FALSE;   // the default handling drags the window
    case WM_CLOSE:
        Unpin();
        PopupHide();
        return TRUE;
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC: {
        HDC dc = reinterpret_cast<HDC>(wParam);
        SetTextColor(dc, kTextColour);
        SetBkColor(dc, kBackColour);
        return reinterpret_cast<INT_PTR>(sources_.background ? sources_.background
                                                             : static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
    case WM_DRAWITEM:
        if (wParam == IDC_POPUP_GRAPH) {
            DrawGraph(GraphDrawing::Always);
            return TRUE;
        }
        return FALSE;
    case WM_MOUSEMOVE:
    case WM_NCMOUSEMOVE:
        if (sources_.graph) sources_.graph->UpdateGraph(graphControl_, nullptr, 0);
        return FALSE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK PerfPopup::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* self = reinterpret_cast<PerfPopup*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        self->window_ = window;
        self->PopupInit();
        return FALSE;   // a pop-up never takes the focus
    }
    auto* self = reinterpret_cast<PerfPopup*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self ? self->OnMessage(message, wParam, lParam) : FALSE;
}

}  // namespace lmvx::perf
