#include "dialog_window.h"

#include <commctrl.h>

#include "module_resources.h"

namespace lmvx::restest {
namespace {

INT_PTR CALLBACK PassiveDialogProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

}  // namespace

void InitControls() {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
}

DialogWindow CreateDialogInLanguage(unsigned dialogId, LANGID language, DLGPROC procedure, LPARAM param) {
    DialogWindow result;
    ResourceBytes bytes = FindResourceBytes(RT_DIALOG, dialogId, language);
    if (bytes.data == nullptr) return result;
    auto* dialogTemplate = static_cast<const DLGTEMPLATE*>(bytes.data);
    // DLGTEMPLATEEX keeps its style after version, signature, help id and extended style.
    DWORD style = reinterpret_cast<const DWORD*>(bytes.data)[3];
    if (style & WS_CHILD) {
        result.host.reset(CreateWindowExW(0, L"#32770", L"", WS_POPUP | WS_CAPTION | WS_CLIPCHILDREN, 20, 20,
                                          400, 500, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
        if (!result.host) return result;
    }
    result.dialog.reset(CreateDialogIndirectParamW(GetModuleHandleW(nullptr), dialogTemplate, result.host.get(),
                                                   procedure ? procedure : PassiveDialogProc, param));
    return result;
}

UniqueMenu LoadMenuInLanguage(unsigned menuId, LANGID language) {
    ResourceBytes bytes = FindResourceBytes(RT_MENU, menuId, language);
    if (bytes.data == nullptr) return nullptr;
    return UniqueMenu(LoadMenuIndirectW(static_cast<const MENUTEMPLATEW*>(bytes.data)));
}

}  // namespace lmvx::restest
