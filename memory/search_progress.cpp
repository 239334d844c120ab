// The progress dialog of a memory search (265), on a thread of its own: the address being read and a
// bar, refreshed every 25 ms, and Cancel. It only reads the scan's progress and writes its cancel flag.
#include <windows.h>
#include <commctrl.h>

#include "finch.h"
#include "memory/memory_search.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr UINT_PTR kProgressTimer = 4000;
constexpr UINT kProgressPeriod = 25;

MemorySearchState* StateOf(HWND dialog) {
    return reinterpret_cast<MemorySearchState*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
}

void OnTick(HWND dialog) {
    MemorySearchState* state = StateOf(dialog);
    wchar_t text[128];
    APIP_FormatString(text, sizeof text, UIL_LangModule.GetLangString(IDS_READING_ADDRESS),
                      static_cast<unsigned>(state->currentAddress));
    wren::SetDlgItemTextW(dialog, IDC_SEARCH_PROGRESS_TEXT, text);
    const uint32_t onePercent = state->totalBytes / 100;
    if (onePercent != 0) {
        // Past 100 % the control clamps the bar.
        SendDlgItemMessageW(dialog, IDC_SEARCH_PROGRESS_BAR, PBM_SETPOS, state->bytesRead / onePercent, 0);
    }
    if (state->running == 0) EndDialog(dialog, IDOK);
}

BOOL OnInitDialog(HWND dialog, MemorySearchState* state) {
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(state));
    state->progressDialog = dialog;
    wren::Embold(dialog, IDC_SEARCH_PROGRESS_TEXT);
    ShowWindow(dialog, SW_SHOW);
    SetTimer(dialog, kProgressTimer, kProgressPeriod, nullptr);
    return TRUE;
}

void OnCancel(HWND dialog) {
    EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
    StateOf(dialog)->cancel = 1;
}

}  // namespace

INT_PTR CALLBACK SearchProgressProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, reinterpret_cast<MemorySearchState*>(lParam));
    case WM_TIMER:
        if (wParam == kProgressTimer) OnTick(dialog);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDCANCEL) OnCancel(dialog);
        return TRUE;
    case WM_DESTROY:
        KillTimer(dialog, kProgressTimer);
        if (MemorySearchState* state = StateOf(dialog)) state->progressDialog = nullptr;
        return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx
