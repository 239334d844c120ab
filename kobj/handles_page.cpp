#include "kobj/handles_page.h"

#include <unordered_set>

#include "app/option_keys.h"
#include "finch.h"
#include "kobj/handle_list_view.h"
#include "kobj/handle_page_common.h"
#include "kobj/handle_properties.h"
#include "kobj/handle_type_table.h"
#include "kobj/remote_handle_close.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::kobj {

namespace {

bool ShowUnnamed() {
    return wren::regOptions.GetOptionBOOL(options::ShowUnnamedHandles.name, options::ShowUnnamedHandles.defaultValue) != 0;
}

void Refresh(HWND page, ProcessPropertiesContext& context) {
    const bool showUnnamed = ShowUnnamed();
    kestrel::_HANDLELIST& handles = context.handleList;
    handles.QueryHandlesProcess(context.pid);
    HWND list = PageList(page);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    const auto listed = RowsByValue(list);
    std::unordered_set<unsigned> listable;   // handles that may stay listed
    int inserted = 0;
    for (unsigned i = 0; i < handles.GetHandleCount(); ++i) {
        const kestrel::_HANDLEOBJECT* handle = handles.GetHandlePtr(i);
        const unsigned value = HandleKey(handle->GetRemoteHandle());
        const wchar_t* print = handle->GetObjectPrintStr();
        if (!showUnnamed && !*print) continue;
        if (!listable.insert(value).second || listed.contains(value)) continue;
        const wchar_t* type = handle->GetObjectTypeStr();
        const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
        const int row = InsertRow(list, count, value, HandleTypeImageIndex(type),
                                  *type ? type : UIL_LangModule.GetLangString(IDS_UNKNOWN));
        wren::ListViewSetItemText(list, row, 1, print);
        ++inserted;
    }
    const int deleted =
        RemoveVanishedRows(ListRows(list), false, [&](unsigned value) { return !listable.contains(value); });
    FinishRefresh(list, inserted + deleted > 0);
}

void OnCopyName(HWND page) {
    HWND list = PageList(page);
    const int row = static_cast<int>(SendMessageW(list, LVM_GETSELECTIONMARK, 0, 0));
    if (row < 0) return;
    const std::wstring name = RowText(list, row, 1);
    if (!name.empty()) CopyThroughEdit(GetDlgItem(page, IDC_HPAGE_CLIPBOARD), name.c_str());
}

void OnToggleUnnamed(HWND page, ProcessPropertiesContext& context) {
    wren::regOptions.SetOptionBOOL(options::ShowUnnamedHandles.name, ShowUnnamed() ? 0 : 1);
    Refresh(page, context);
}

INT_PTR CALLBACK ConfirmProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message == WM_COMMAND && (LOWORD(wParam) == IDYES || LOWORD(wParam) == IDNO || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

void OnCloseHandle(HWND page, const ProcessPropertiesContext& context) {
    const unsigned value = SelectedRowValue(PageList(page));
    if (UIL_LangModule.ShowDialogParam(IDD_CLOSE_REMOTE_HANDLE, page, ConfirmProc, 0) != IDYES) return;
    if (CloseHandleInProcess(context.pid, value) != RemoteCloseResult::Closed) ShowCloseHandleFailure(page);
}

void OnProperties(HWND page, const ProcessPropertiesContext& context) {
    const unsigned value = SelectedRowValue(PageList(page));
    for (unsigned i = 0; i < context.handleList.GetHandleCount(); ++i) {
        const kestrel::_HANDLEOBJECT* handle = context.handleList.GetHandlePtr(i);
        if (HandleKey(handle->GetRemoteHandle()) != value) continue;
        const kestrel::_HANDLEOBJECT copy = *handle;   // the list may be queried again while the sheet is open
        ShowHandleProperties(page, &copy);
        return;
    }
}

void ShowMenu(HWND page) {
    const PageMenuItem items[] = {
        {L"Copy Name", L"Name kopieren", IDM_HANDLE_COPY_NAME_PAGE},
        {L"Show Unnamed Objects", L"Unbenannte Objekte anzeigen", IDM_SHOW_UNNAMED_HANDLES, false, ShowUnnamed()},
        {nullptr, nullptr, 0},
        {L"Close Handle...", L"Handle schließen...", IDM_HANDLE_CLOSE_PAGE},
        {L"Properties", L"Eigenschaften", IDM_HANDLE_PROPERTIES, true},
    };
    ShowPageMenu(page, items);
}

void OnCommand(HWND page, ProcessPropertiesContext& context, WORD command) {
    switch (command) {
    case IDM_HANDLE_COPY_NAME_PAGE: OnCopyName(page); break;
    case IDM_SHOW_UNNAMED_HANDLES: OnToggleUnnamed(page, context); break;
    case IDM_HANDLE_CLOSE_PAGE: OnCloseHandle(page, context); break;
    case IDM_HANDLE_PROPERTIES: OnProperties(page, context); break;
    default: break;
    }
}

void SetUp(HWND page, ProcessPropertiesContext& context) {
    const unsigned columns[] = {IDS_COLUMN_TYPE, IDS_COLUMN_NAME};
    const int widths[] = {110, 70};
    SetUpHandlePage(page, context, &ProcessPropertiesContext::handlesPage, columns, widths, 2);
    SendMessageW(PageList(page), LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(CreateHandleTypeImageList()));
}

constexpr PageBehaviour kHandlesPage = {SetUp, Refresh, OnCommand, ShowMenu};

}  // namespace

INT_PTR CALLBACK HandlesPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return HandlePageMessage(kHandlesPage, page, message, wParam, lParam);
}

}  // namespace lmvx::kobj
