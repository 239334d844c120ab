// Options page "Process List": blank cells for zero values, and the column order put back at once.
#include "options/options_pages.h"
#include "resource.h"

namespace lmvx {
namespace {

using namespace options_page;

INT_PTR OnInitDialog(HWND page, LPARAM lParam) {
    KeepHooks(page, lParam);
    wren::Embold(page, IDC_OPTIONS_HEADING);
    SetChecked(page, IDC_OPTIONS_BLANK_ZERO, ReadOption(options::BlankZero));
    return TRUE;
}

INT_PTR OnCommand(HWND page, WORD command) {
    switch (command) {
    case IDOK:
        StoreCheck(page, IDC_OPTIONS_BLANK_ZERO, options::BlankZero);
        return TRUE;
    case IDCANCEL:
        EndDialog(page, 1);
        return TRUE;
    case IDC_OPTIONS_RESTORE_COLUMNS:
        // Acts at once, OK or not.
        if (const OptionsDialogHooks* hooks = Hooks(page); hooks && hooks->restoreColumns) hooks->restoreColumns();
        return TRUE;
    }
    return FALSE;
}

}  // namespace

INT_PTR CALLBACK ProcessListPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_COMMAND: return OnCommand(page, LOWORD(wParam));
    }
    return FALSE;
}

}  // namespace lmvx
