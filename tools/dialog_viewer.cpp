// Shows one dialog of the program's resources in one language for a few seconds, so that
// layouts can be looked at in screenshots:  res_dialog_viewer <dialog id> <en|de> [seconds]
#include <windows.h>
#include <shellapi.h>

#include <cwchar>
#include <cwctype>
#include <string>

#include "dialog_window.h"
#include "module_resources.h"
#include "resource.h"

namespace {

constexpr UINT_PTR kCloseTimer = 1;

// Sample contents so that empty fields do not hide clipping.
void FillSampleTexts(HWND dialog, unsigned dialogId, LANGID language) {
    bool german = language == lmvx::restest::kGerman;
    switch (dialogId) {
    case IDD_WARNING:
        SetDlgItemTextW(dialog, IDC_WARNING_MESSAGE,
                        german ? L"Lumivex wurde das Recht zum Herunterfahren verweigert. Das Programm l\u00e4uft "
                                 L"ohne Probleme, aber einige Funktionen sind m\u00f6glicherweise nicht verf\u00fcgbar."
                               : L"Lumivex was denied the Shutdown privilege. The application will run without "
                                 L"problems but some functionality may not be available.");
        break;
    case IDD_CONFIRM_TERMINATE:
    case IDD_CONFIRM_SUSPEND:
    case IDD_CONFIRM_PAGE_OUT:
        SetDlgItemTextW(dialog, IDC_CONFIRM_NAME, L"notepad.exe");
        SetDlgItemTextW(dialog, IDC_CONFIRM_COMPANY, L"Orvane Software");
        break;
    case IDD_PERF_POPUP:
        SetDlgItemTextW(dialog, IDC_POPUP_VALUE_1, L"12 %");
        SetDlgItemTextW(dialog, IDC_POPUP_VALUE_2, L"1234/s");
        break;
    default: break;
    }
}

INT_PTR CALLBACK ViewerProc(HWND, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_INITDIALOG: return TRUE;
    case WM_TIMER:
        if (wParam == kCloseTimer) PostQuitMessage(0);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) PostQuitMessage(0);
        return TRUE;
    case WM_CLOSE: PostQuitMessage(0); return TRUE;
    default: return FALSE;
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    int argc = 0;
    LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &argc);
    if (argv == nullptr || argc < 3) return 2;
    unsigned dialogId = static_cast<unsigned>(std::wcstoul(argv[1], nullptr, 10));
    LANGID language = std::wstring(argv[2]) == L"de" ? lmvx::restest::kGerman : lmvx::restest::kEnglish;
    UINT seconds = argc > 3 ? static_cast<UINT>(std::wcstoul(argv[3], nullptr, 10)) : 5;
    LocalFree(argv);

    lmvx::restest::InitControls();
    lmvx::restest::DialogWindow window = lmvx::restest::CreateDialogInLanguage(dialogId, language, ViewerProc);
    if (!window.dialog) return 1;
    HWND dialog = window.dialog.get();
    lmvx::restest::UniqueMenu menu;
    if (dialogId == IDD_MAIN) {
        menu = lmvx::restest::LoadMenuInLanguage(IDR_MAIN_MENU, language);
        SetMenu(dialog, menu.get());
    }
    FillSampleTexts(dialog, dialogId, language);
    HWND top = window.host ? window.host.get() : dialog;
    SetWindowPos(top, HWND_TOP, 20, 20, 0, 0, SWP_NOSIZE);
    if (window.host) {
        ShowWindow(dialog, SW_SHOW);
    }
    ShowWindow(top, SW_SHOW);
    SetTimer(dialog, kCloseTimer, seconds * 1000, nullptr);

    MSG msg;
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageW(dialog, &msg)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
    }
    if (menu) SetMenu(dialog, nullptr);  // detach: the menu is destroyed once, by its owner
    return 0;
}
