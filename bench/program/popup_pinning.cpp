#include "popup_pinning.h"

#include <initializer_list>

namespace lmvx_bench {
namespace {

constexpr UINT kTrayCallbackMessage = 4500;
constexpr UINT kStatusBarMouseMessage = WM_USER + 40;
constexpr LONG_PTR kPinnedStyleBit = WS_SYSMENU;
constexpr int kStatusBarId = 110;
// A point inside the memory pane at any window width above 500 pixels (its edges are 250 and 455).
constexpr POINT kInMemoryPane{300, 8};

struct OwnedCaption {
    HWND owner;
    std::initializer_list<const wchar_t*> captions;
    HWND found = nullptr;
};

BOOL CALLBACK MatchOwnedCaption(HWND window, LPARAM lParam) {
    auto* search = reinterpret_cast<OwnedCaption*>(lParam);
    if (GetWindow(window, GW_OWNER) != search->owner) return TRUE;
    wchar_t text[128] = {};
    GetWindowTextW(window, text, 128);
    for (const wchar_t* caption : search->captions) {
        if (lstrcmpW(text, caption) == 0) {
            search->found = window;
            return FALSE;
        }
    }
    return TRUE;
}

HWND FindOwned(HWND owner, std::initializer_list<const wchar_t*> captions) {
    OwnedCaption search{owner, captions};
    EnumWindows(MatchOwnedCaption, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool WaitFor(HWND popup, DWORD limitMs) {
    const DWORD start = GetTickCount();
    while (!IsPinnedAndShown(popup)) {
        if (GetTickCount() - start > limitMs) return false;
        Sleep(20);
    }
    return true;
}

// A press on the frame pins the pop-up; HTNOWHERE keeps the default handling from starting a drag.
bool Pin(HWND popup, DWORD limitMs) {
    PostMessageW(popup, WM_NCLBUTTONDOWN, HTNOWHERE, 0);
    return WaitFor(popup, limitMs);
}

}  // namespace

bool IsPinnedAndShown(HWND popup) {
    return popup && IsWindowVisible(popup) && (GetWindowLongPtrW(popup, GWL_STYLE) & kPinnedStyleBit) != 0;
}

PinnedPopups ShowAndPinPopups(HWND mainWindow, DWORD limitMs) {
    PinnedPopups popups;
    HWND cpu = FindOwned(mainWindow, {L"CPU Usage History", L"Verlauf der CPU Auslastung"});
    HWND memory = FindOwned(mainWindow, {L"Memory Usage History", L"Verlauf der Speicherauslastung"});
    if (cpu) {
        PostMessageW(mainWindow, kTrayCallbackMessage, 1035, WM_MOUSEMOVE);
        if (Pin(cpu, limitMs)) popups.cpu = cpu;
    }
    if (memory && GetDlgItem(mainWindow, kStatusBarId)) {
        PostMessageW(mainWindow, kStatusBarMouseMessage, WM_MOUSEMOVE, MAKELPARAM(kInMemoryPane.x, kInMemoryPane.y));
        if (Pin(memory, limitMs)) popups.memory = memory;
    }
    return popups;
}

}  // namespace lmvx_bench
