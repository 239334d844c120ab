#include "perf/status_bar_notice.h"

#include <commctrl.h>

#include "wren.h"

namespace lmvx::perf {
namespace {

constexpr UINT_PTR kNoticeToolId = 0;

TTTOOLINFOW ToolOf(HWND bar) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.hwnd = bar;
    tool.uId = kNoticeToolId;
    return tool;
}

}  // namespace

RECT PaneRectInBar(HWND bar, int pane) {
    RECT rect{};
    SendMessageW(bar, SB_GETRECT, pane, reinterpret_cast<LPARAM>(&rect));
    return rect;
}

HWND CreateNotice(HWND bar, const RECT& paneRect) {
    HWND notice = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, bar, nullptr,
                                  nullptr, nullptr);
    if (!notice) return nullptr;
    SetWindowPos(notice, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    TTTOOLINFOW tool = ToolOf(bar);
    tool.uFlags = TTF_SUBCLASS | TTF_TRACK | TTF_ABSOLUTE;
    tool.rect = paneRect;
    tool.lpszText = const_cast<wchar_t*>(wren::HardcodeLangString(
        L"Some options and information may be unavailable.\nClick here for more information.",
        L"Einige Optionen und Informationen sind nicht verf\u00fcgbar.\nKlicken Sie hier f\u00fcr weitere "
        L"Informationen."));
    SendMessageW(notice, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    // Several lines: the tooltip only breaks at \n when it has a width limit.
    SendMessageW(notice, TTM_SETMAXTIPWIDTH, 0, 400);
    SendMessageW(notice, TTM_SETTITLEW, TTI_INFO,
                 reinterpret_cast<LPARAM>(wren::HardcodeLangString(L"Lumivex does not have full access to the system.",
                                                                   L"Lumivex hat keinen Vollzugriff auf das System.")));
    return notice;
}

void ActivateNotice(HWND notice, HWND bar) {
    TTTOOLINFOW tool = ToolOf(bar);
    SendMessageW(notice, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
}

void PlaceNotice(HWND notice, const RECT& paneScreenRect) {
    SendMessageW(notice, TTM_TRACKPOSITION, 0, MAKELPARAM(paneScreenRect.left, paneScreenRect.bottom));
}

void HideNotice(HWND notice, HWND bar) {
    TTTOOLINFOW tool = ToolOf(bar);
    if (SendMessageW(notice, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool))) {
        tool.uFlags = TTF_SUBCLASS | TTF_ABSOLUTE;
        SendMessageW(notice, TTM_SETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    SendMessageW(notice, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace lmvx::perf
