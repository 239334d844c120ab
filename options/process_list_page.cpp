// Options page "Process List": blank cells for zero values, and the column order put back at once.
#include "options/options_pages.h"
#include "resource.h"

namespace lmvx {
namespace {

using namespace options_page;

void OnInitDialog(HWND page) {
    SetChecked(page, IDC_OPTIONS_BLANK_ZERO, ReadOption(options::BlankZero));
}

void OnCommand(HWND page, WORD command) {
    switch (command) {
    case IDOK:
        StoreCheck(page, IDC_OPTIONS_BLANK_ZERO, options::BlankZero);
        break;
    case IDC_OPTIONS_RESTORE_COLUMNS:
        // Acts at once, OK or not.
        if (const OptionsDialogHooks* hooks = Hooks(page); hooks && hooks->restoreColumns) hooks->restoreColumns();
        break;
    }
}

}  // namespace

INT_PTR CALLBACK ProcessListPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return Procedure<OnInitDialog, OnCommand>(page, message, wParam, lParam);
}

}  // namespace lmvx
