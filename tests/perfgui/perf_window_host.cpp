#include "perf_window_host.h"

#include <commctrl.h>

#include "hosted_main_window.h"
#include "perf/sampler.h"
#include "resource.h"

namespace perfgui_test {
namespace {

struct OwnedCaption {
    HWND owner;
    const wchar_t* caption;
    HWND found = nullptr;
};

BOOL CALLBACK MatchOwnedCaption(HWND window, LPARAM lParam) {
    auto* search = reinterpret_cast<OwnedCaption*>(lParam);
    wchar_t text[256] = {};
    GetWindowTextW(window, text, 256);
    if (GetWindow(window, GW_OWNER) == search->owner && lstrcmpW(text, search->caption) == 0) {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

}  // namespace

HostedPerfWindow::HostedPerfWindow()
    : program_(std::make_unique<lmvx_test::ScopedHostedProgram>(L"Lumivex Perf GUI Test")) {
    // What start-up does before the main window: counters, graphs and the performance source.
    static const bool performanceReady = [] {
        lmvx::perf::InitPerformance();
        lmvx::perf::KeepPerfMonSource();
        return true;
    }();
    (void)performanceReady;
    window_ = std::make_unique<lmvx_test::HostedMainWindow>();
}

HostedPerfWindow::~HostedPerfWindow() = default;

HWND HostedPerfWindow::Main() const { return window_->Get(); }

HWND HostedPerfWindow::StatusBar() const { return GetDlgItem(window_->Get(), IDC_STATUS_BAR); }

HWND HostedPerfWindow::FindPopup(const wchar_t* caption) const {
    OwnedCaption search{window_->Get(), caption};
    EnumThreadWindows(GetCurrentThreadId(), MatchOwnedCaption, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void PumpFor(DWORD ms) {
    const DWORD start = GetTickCount();
    lmvx_test::PumpUntil([&] { return GetTickCount() - start >= ms; }, ms + 1000);
}

std::wstring PaneText(HWND bar, int pane) {
    const LRESULT length = SendMessageW(bar, SB_GETTEXTLENGTHW, pane, 0);
    std::wstring text(LOWORD(length) + 1, L'\0');
    SendMessageW(bar, SB_GETTEXTW, pane, reinterpret_cast<LPARAM>(text.data()));
    text.resize(LOWORD(length));
    return text;
}

RECT PaneScreenRect(HWND bar, int pane) {
    RECT rect{};
    SendMessageW(bar, SB_GETRECT, pane, reinterpret_cast<LPARAM>(&rect));
    MapWindowPoints(bar, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

POINT CentreOf(const RECT& rect) { return POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }

void MovePointerTo(POINT at) {
    // An absolute move as a mouse reports it, in the 0..65535 units of the primary screen.
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = static_cast<LONG>((at.x * 65536LL + width - 1) / width);
    input.mi.dy = static_cast<LONG>((at.y * 65536LL + height - 1) / height);
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    SendInput(1, &input, sizeof input);
}

void ClickLeftButton() {
    INPUT inputs[2]{};
    inputs[0].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[1].type = INPUT_MOUSE;
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, inputs, sizeof(INPUT));
}

}  // namespace perfgui_test
