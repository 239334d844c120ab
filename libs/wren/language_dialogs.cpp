// The first-start language choice and the Language Settings dialog. Both offer the same two radio
// buttons and end with the chosen language id, or 0 when the user cancels.
#include <windowsx.h>

#include "language_choice.h"
#include "language_settings.h"
#include "module_instance.h"
#include "wren.h"
#include "wren_resource.h"

namespace wren {
namespace {

LANGID CheckedLanguage(HWND dialog) {
    return IsDlgButtonChecked(dialog, IDC_WREN_LANGUAGE_GERMAN) == BST_CHECKED ? kLanguageGerman
                                                                                : kLanguageEnglish;
}

BOOL OnInitDialog(HWND dialog, LPARAM initialLanguage) {
    const int checked = SupportedLanguage(static_cast<unsigned long>(initialLanguage)) == kLanguageGerman
                            ? IDC_WREN_LANGUAGE_GERMAN
                            : IDC_WREN_LANGUAGE_ENGLISH;
    CheckRadioButton(dialog, IDC_WREN_LANGUAGE_ENGLISH, IDC_WREN_LANGUAGE_GERMAN, checked);
    CenterWindow(dialog, GetParent(dialog));
    SetFocus(GetDlgItem(dialog, checked));
    return FALSE;   // focus set here
}

void OnCommand(HWND dialog, int commandId) {
    switch (commandId) {
    case IDOK: EndDialog(dialog, CheckedLanguage(dialog)); break;
    case IDCANCEL: EndDialog(dialog, 0); break;
    default: break;
    }
}

INT_PTR CALLBACK LanguageDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, lParam);
    case WM_COMMAND: OnCommand(dialog, GET_WM_COMMAND_ID(wParam, lParam)); return TRUE;
    default: return FALSE;
    }
}

LANGID ShowLanguageDialog(int templateId, HWND parent, LANGID initialLanguage) {
    const INT_PTR result = wren::DialogBoxParamW(LibraryInstance(), MAKEINTRESOURCEW(templateId), parent,
                                                 LanguageDialogProc, initialLanguage);
    return result > 0 ? SupportedLanguage(static_cast<unsigned long>(result)) : 0;
}

}  // namespace

int SelectLanguageDialog(HWND parent) {
    const LANGID chosen =
        ShowLanguageDialog(IDD_WREN_SELECT_LANGUAGE, parent, SuggestedLanguage(GetUserDefaultUILanguage()));
    if (!chosen) return 0;   // closed without a choice: English for this run, asked again next start
    SetCurrentLangID(chosen);
    return 1;
}

int LanguageSettingsDialog(HWND parent) {
    const LANGID stored = ReadStoredLanguage();
    const LANGID before = stored ? stored : GetCurrentLangID();
    const LANGID chosen = ShowLanguageDialog(IDD_WREN_LANGUAGE_SETTINGS, parent, before);
    if (!chosen || chosen == before) return 0;
    // The running program keeps its language: its texts are already loaded. The choice counts from the next start.
    StoreLanguage(chosen);
    return 1;
}

}  // namespace wren
