#include "kobj/kernel_objects_dialog.h"

#include <memory>
#include <unordered_set>

#include "app/shared_icons.h"
#include "common/dialog_thread.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "kobj/handle_list_view.h"
#include "kobj/handle_type_table.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::kobj {

namespace {

KernelObjectsContext* ContextOf(HWND dialog) {
    return reinterpret_cast<KernelObjectsContext*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
}

HWND ListOf(HWND dialog) { return GetDlgItem(dialog, IDC_KOBJ_LIST); }

std::wstring Format(const wchar_t* format, unsigned long value) {
    wchar_t text[32];
    APIP_FormatString(text, sizeof text, format, value);
    return text;
}

// Rows already listed keep their texts; new handles go in at the top; then the skipping removal pass.
void FillList(KernelObjectsContext& context) {
    HWND list = ListOf(context.dialog);
    const kestrel::_HANDLELIST& handles = context.list;
    const auto listed = RowsByValue(list);   // positions go stale as rows go in at the top; presence does not
    std::unordered_set<unsigned> present;
    for (unsigned i = 0; i < handles.GetHandleCount(); ++i) {
        const kestrel::_HANDLEOBJECT* handle = handles.GetHandlePtr(i);
        const unsigned value = HandleKey(handle->GetRemoteHandle());
        if (!present.insert(value).second || listed.contains(value)) continue;
        const wchar_t* type = handle->GetObjectTypeStr();
        const int row = InsertRow(list, 0, value, HandleTypeImageIndex(type),
                                  *type ? type : UIL_LangModule.GetLangString(IDS_UNKNOWN));
        // Only the two columns: the reference count would go to a third one the list does not have, and
        // reading it costs three calls to the system per handle; the detail pane reads it for its handle.
        wren::ListViewSetItemText(list, row, 1, handle->GetObjectPrintStr());
    }
    RemoveVanishedRows(ListRows(list), true, [&](unsigned value) { return !present.contains(value); });
}

void Requery(KernelObjectsContext& context) {
    context.list.QueryHandlesProcess(context.processId);
    FillList(context);
}

unsigned StoredSelection(HWND dialog) { return GetDlgItemInt(dialog, IDC_KOBJ_SELECTED_VALUE, nullptr, FALSE); }

// The handle of the stored selection; the first handle when it has gone (a lookup never fails, intended).
kestrel::_HANDLEOBJECT SelectedHandle(const KernelObjectsContext& context) {
    const unsigned value = StoredSelection(context.dialog);
    for (unsigned i = 0; i < context.list.GetHandleCount(); ++i) {
        if (HandleKey(context.list.GetHandlePtr(i)->GetRemoteHandle()) == value) return context.list.GetHandle(i);
    }
    return context.list.GetHandle(0);
}

void ShowDetails(const KernelObjectsContext& context) {
    HWND dialog = context.dialog;
    const kestrel::_HANDLEOBJECT handle = SelectedHandle(context);
    const wchar_t* name = handle.GetObjectName();
    SetDlgItemTextW(dialog, IDC_KOBJ_TYPE_LABEL, handle.GetObjectTypeStr());
    SetDlgItemTextW(dialog, IDC_KOBJ_PRINT_NAME, handle.GetObjectPrintStr());
    SetDlgItemTextW(dialog, IDC_KOBJ_OBJECT_NAME, *name ? name : UIL_LangModule.GetLangString(IDS_UNNAMED_OBJECT));
    SetDlgItemTextW(dialog, IDC_KOBJ_REFERENCES, Format(L"%d", handle.GetReferenceCount()).c_str());
    SetDlgItemTextW(dialog, IDC_KOBJ_HANDLE_VALUE, Format(L"0x%.8X", HandleKey(handle.GetRemoteHandle())).c_str());
    SetDlgItemTextW(dialog, IDC_KOBJ_PAGED_POOL, Format(L"%d", handle.GetPagedPoolQuota()).c_str());
    SetDlgItemTextW(dialog, IDC_KOBJ_NONPAGED_POOL, Format(L"%d", handle.GetNonPagedPoolQuota()).c_str());
    SetDlgItemTextW(dialog, IDC_KOBJ_ACCESS, Format(L"0x%.8X", handle.GetDesiredAccess()).c_str());
    SendDlgItemMessageW(dialog, IDC_KOBJ_TYPE_ICON, STM_SETICON,
                        reinterpret_cast<WPARAM>(SharedIconById(HandleTypeIconId(handle.GetObjectTypeStr())).large), 0);
}

void FollowSelection(KernelObjectsContext& context) {
    HWND list = ListOf(context.dialog);
    const int row = static_cast<int>(SendMessageW(list, LVM_GETSELECTIONMARK, 0, 0));
    if (row < 0) return;
    const unsigned value = RowValue(list, row);
    if (value == StoredSelection(context.dialog)) return;
    SetDlgItemInt(context.dialog, IDC_KOBJ_SELECTED_VALUE, value, FALSE);
    ShowDetails(context);
}

void ShowContextMenu(const KernelObjectsContext& context) {
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return;
    HWND dialog = context.dialog;
    const auto text = [](UINT id) { return UIL_LangModule.GetLangString(id); };
    const bool hasName = GetWindowTextLengthW(GetDlgItem(dialog, IDC_KOBJ_PRINT_NAME)) > 0;
    const bool dosFile = SelectedHandle(context).IsDosFile() != 0;
    AppendMenuW(menu.Get(), MF_STRING, IDC_KOBJ_UPDATE_LIST, text(IDS_UPDATE_HANDLE_LIST));
    AppendMenuW(menu.Get(), MF_STRING, IDM_HANDLE_CLOSE_PAGE, text(IDS_CLOSE_HANDLE));
    AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.Get(), MF_STRING | (hasName ? 0 : MF_GRAYED), IDM_HANDLE_COPY_NAME_PAGE, text(IDS_COPY_NAME));
    AppendMenuW(menu.Get(), MF_STRING | (dosFile ? 0 : MF_GRAYED), IDM_HANDLE_OPEN_FOLDER_PAGE,
                text(IDS_OPEN_CONTAINING_FOLDER));
    SetMenuDefaultItem(menu.Get(), IDC_KOBJ_UPDATE_LIST, FALSE);
    POINT cursor{};
    GetCursorPos(&cursor);
    TrackPopupMenu(menu.Get(), TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON, cursor.x, cursor.y, 0, dialog, nullptr);
}

// Asks first; whatever the answer, the list is read again a second later.
void OnCloseHandle(KernelObjectsContext& context) {
    HWND dialog = context.dialog;
    const wchar_t* caption = UIL_LangModule.GetLangString(IDS_CLOSE_HANDLE);
    if (MessageBoxW(dialog, UIL_LangModule.GetLangString(IDS_CLOSE_HANDLE_WARNING), caption,
                    MB_YESNO | MB_ICONEXCLAMATION) == IDYES &&
        !SelectedHandle(context).CloseRemoteHandle()) {
        MessageBoxW(dialog, UIL_LangModule.GetLangString(IDS_ERR_CLOSE_HANDLE), caption, MB_OK | MB_ICONEXCLAMATION);
    }
    SetTimer(dialog, IDT_HANDLES_AFTER_CLOSE, 1000, nullptr);
}

void OnCopyName(HWND dialog) {
    HWND edit = GetDlgItem(dialog, IDC_KOBJ_PRINT_NAME);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_COPY, 0, 0);
}

void OnOpenFolder(const KernelObjectsContext& context) {
    if (context.openFolder) context.openFolder(SelectedHandle(context).GetObjectPrintStr());
}

void OnCommand(KernelObjectsContext& context, WORD command) {
    switch (command) {
    case IDC_KOBJ_UPDATE_LIST: Requery(context); break;
    case IDM_HANDLE_CLOSE_PAGE: OnCloseHandle(context); break;
    case IDM_HANDLE_COPY_NAME_PAGE: OnCopyName(context.dialog); break;
    case IDM_HANDLE_OPEN_FOLDER_PAGE: OnOpenFolder(context); break;
    case IDOK:
    case IDCANCEL: EndDialog(context.dialog, command); break;
    default: break;
    }
}

void OnNotify(KernelObjectsContext& context, const NMHDR& header) {
    if (header.idFrom != IDC_KOBJ_LIST) return;
    FollowSelection(context);
    if (header.code == NM_RCLICK) ShowContextMenu(context);
    // The Delete key closes the selected handle, as a released Delete does (WM_SYSKEYUP below).
    if (header.code == LVN_KEYDOWN && reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_DELETE)
        PostMessageW(context.dialog, WM_COMMAND, IDM_HANDLE_CLOSE_PAGE, 0);
}

void OnTimer(KernelObjectsContext& context, UINT_PTR timer) {
    KillTimer(context.dialog, timer);
    Requery(context);
    // Nothing arms the periodic timer here; when something does, it keeps itself going.
    if (timer == IDT_HANDLES_REFRESH) SetTimer(context.dialog, IDT_HANDLES_REFRESH, 100, nullptr);
}

void SetUpList(HWND dialog) {
    HWND list = ListOf(dialog);
    const unsigned columns[] = {IDS_COLUMN_TYPE, IDS_COLUMN_NAME};
    const int widths[] = {100, 500};
    SetUpColumns(list, columns, widths, 2);
    // The list view owns and destroys its image list.
    SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(CreateHandleTypeImageList()));
}

INT_PTR CALLBACK ScanningNoticeProc(HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; }

BOOL OnInitDialog(HWND dialog, KernelObjectsContext* context) {
    wren::Embold(dialog, IDC_KOBJ_TYPE_LABEL);
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    context->dialog = dialog;
    wchar_t caption[64];
    // Fixed English text in both languages, intended.
    APIP_FormatString(caption, sizeof caption, L"Handles for Process %d", context->processId);
    SetWindowTextW(dialog, caption);
    SetUpList(dialog);
    HWND list = ListOf(dialog);
    ShowWindow(list, SW_HIDE);
    ShowWindow(dialog, SW_SHOW);
    UpdateWindow(dialog);
    UniqueWindow notice(UIL_LangModule.LoadDialogParam(IDD_SCANNING_HANDLES, dialog, ScanningNoticeProc, 0));
    if (notice) {
        wren::CenterWindow(notice.Get(), dialog);
        ShowWindow(notice.Get(), SW_SHOW);
        UpdateWindow(notice.Get());
    }
    context->list.Init();
    Requery(*context);
    ShowWindow(list, SW_SHOW);
    return TRUE;
}

DWORD WINAPI DialogThread(void* parameter) {
    auto* context = static_cast<KernelObjectsContext*>(parameter);
    UIL_LangModule.ShowDialogParam(IDD_KERNEL_OBJECTS, context->owner, KernelObjectsDialogProc,
                                   reinterpret_cast<LPARAM>(context));
    return 0;
}

}  // namespace

INT_PTR CALLBACK KernelObjectsDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) return OnInitDialog(dialog, reinterpret_cast<KernelObjectsContext*>(lParam));
    KernelObjectsContext* context = ContextOf(dialog);
    if (!context) return FALSE;
    switch (message) {
    case WM_COMMAND: OnCommand(*context, LOWORD(wParam)); return TRUE;
    case WM_NOTIFY: OnNotify(*context, *reinterpret_cast<const NMHDR*>(lParam)); return TRUE;
    case WM_TIMER: OnTimer(*context, wParam); return TRUE;
    case WM_SYSKEYUP:
        if (wParam != VK_DELETE) return FALSE;
        PostMessageW(dialog, WM_COMMAND, IDM_HANDLE_CLOSE_PAGE, 0);
        return TRUE;
    default: return FALSE;
    }
}

int ShowHandleListDialog(unsigned processId, HWND owner, OpenFolderFn openFolder) {
    auto context = std::make_unique<KernelObjectsContext>();
    context->owner = owner;
    context->processId = processId;
    context->openFolder = openFolder;
    RunDialogThread(DialogThread, context.get());
    return 1;
}

}  // namespace lmvx::kobj
