#include "kobj/handle_properties.h"

#include "finch.h"
#include "kobj/handle_list_view.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::kobj {

namespace {

void SetNumber(HWND dialog, int control, const wchar_t* format, unsigned long value) {
    wchar_t text[32];
    APIP_FormatString(text, sizeof text, format, value);
    SetDlgItemTextW(dialog, control, text);
}

// The caption and name pairs are fixed texts of the two languages, not string-table entries (intended).
void ShowTitle(HWND dialog, const wchar_t* printName) {
    if (!*printName) {
        SetWindowTextW(dialog, wren::HardcodeLangString(L"Properties of Unnamed Object",
                                                        L"Eigenschaften von Unbenanntem Objekt"));
        SetDlgItemTextW(dialog, IDC_HPROP_NAME_LABEL, wren::HardcodeLangString(L"Unnamed Object", L"Unbenanntes Objekt"));
        return;
    }
    wchar_t caption[600];
    APIP_FormatString(caption, sizeof caption, wren::HardcodeLangString(L"Properties of %s", L"Eigenschaften von %s"),
                      printName);
    SetWindowTextW(dialog, caption);
    SetDlgItemTextW(dialog, IDC_HPROP_NAME_LABEL, printName);
}

BOOL OnInitDialog(HWND dialog, const kestrel::_HANDLEOBJECT& handle) {
    wren::Embold(dialog, IDC_HPROP_NAME_LABEL);
    wren::CenterWindow(dialog, GetParent(dialog));
    ShowTitle(dialog, handle.GetObjectPrintStr());
    SetDlgItemTextW(dialog, IDC_HPROP_TYPE, handle.GetObjectTypeStr());
    SetDlgItemTextW(dialog, IDC_HPROP_OBJECT_NAME, handle.GetObjectName());
    SetNumber(dialog, IDC_HPROP_REFERENCES, L"%d", handle.GetReferenceCount());
    SetNumber(dialog, IDC_HPROP_HANDLE_VALUE, L"0x%.8X", HandleKey(handle.GetRemoteHandle()));
    SetNumber(dialog, IDC_KOBJ_ACCESS, L"0x%.8X", handle.GetDesiredAccess());
    SetNumber(dialog, IDC_KOBJ_PAGED_POOL, L"%d", handle.GetPagedPoolQuota());
    SetNumber(dialog, IDC_KOBJ_NONPAGED_POOL, L"%d", handle.GetNonPagedPoolQuota());
    return TRUE;
}

}  // namespace

INT_PTR CALLBACK HandlePropertiesProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, *reinterpret_cast<const kestrel::_HANDLEOBJECT*>(lParam));
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    default: return FALSE;
    }
}

void ShowHandleProperties(HWND owner, const kestrel::_HANDLEOBJECT* handle) {
    if (handle) UIL_LangModule.ShowDialogParam(IDD_HANDLE_PROPERTIES, owner, HandlePropertiesProc, reinterpret_cast<LPARAM>(handle));
}

}  // namespace lmvx::kobj
