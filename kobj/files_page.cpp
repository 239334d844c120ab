#include "kobj/files_page.h"

#include <shellapi.h>

#include <string>
#include <unordered_set>

#include "common/unique_resource.h"
#include "kobj/handle_list_view.h"
#include "kobj/handle_page_common.h"
#include "kobj/remote_handle_close.h"
#include "finch.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::kobj {

namespace {

int SystemIconIndex(const wchar_t* path) {
    SHFILEINFOW info{};
    SHGetFileInfoW(path, 0, &info, sizeof info, SHGFI_SYSICONINDEX | SHGFI_SMALLICON);
    return info.iIcon;
}

void Refresh(HWND page, ProcessPropertiesContext& context) {
    kestrel::_HANDLELIST& handles = context.handleList;
    handles.QueryHandlesProcess(context.pid);
    HWND list = PageList(page);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    const auto listed = RowsByValue(list);   // rows go in at the end, so these positions stay right
    std::unordered_set<unsigned> present;
    int inserted = 0;
    for (unsigned i = 0; i < handles.GetHandleCount(); ++i) {
        const kestrel::_HANDLEOBJECT* handle = handles.GetHandlePtr(i);
        const unsigned value = HandleKey(handle->GetRemoteHandle());
        const wchar_t* path = handle->GetObjectPrintStr();
        if (!present.insert(value).second) continue;
        const auto row = listed.find(value);
        if (row != listed.end()) {
            // A file renamed while open keeps its row and shows its new path.
            if (RowText(list, row->second, 0) != path) wren::ListViewSetItemText(list, row->second, 0, path);
        } else if (handle->IsDosFile()) {
            const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
            InsertRow(list, count, value, SystemIconIndex(path), path);
            ++inserted;
        }
    }
    const int deleted = RemoveVanishedRows(ListRows(list), false, [&](unsigned value) { return !present.contains(value); });
    FinishRefresh(list, inserted + deleted > 0);
}

std::wstring SelectedPath(HWND page) {
    HWND list = PageList(page);
    const int row = static_cast<int>(SendMessageW(list, LVM_GETSELECTIONMARK, 0, 0));
    return row < 0 ? std::wstring() : RowText(list, row, 0);
}

// The confirmation shows the file's icon, path (bold) and type; lParam is the path.
BOOL OnConfirmInit(HWND dialog, const wchar_t* path) {
    wren::CenterWindow(dialog, GetParent(dialog));
    wren::Embold(dialog, IDC_CLOSEFILE_PATH);
    SetDlgItemTextW(dialog, IDC_CLOSEFILE_PATH, path);
    SHFILEINFOW info{};
    if (SHGetFileInfoW(path, 0, &info, sizeof info, SHGFI_ICON | SHGFI_TYPENAME)) {
        SetDlgItemTextW(dialog, IDC_CLOSEFILE_TYPE, info.szTypeName);
        // The dialog keeps the icon in its user data and destroys it with itself.
        SendDlgItemMessageW(dialog, IDC_CLOSEFILE_ICON, STM_SETICON, reinterpret_cast<WPARAM>(info.hIcon), 0);
        SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(info.hIcon));
    }
    return TRUE;
}

INT_PTR CALLBACK ConfirmCloseFileProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnConfirmInit(dialog, reinterpret_cast<const wchar_t*>(lParam));
    case WM_DESTROY: UniqueIcon(reinterpret_cast<HICON>(GetWindowLongPtrW(dialog, GWLP_USERDATA))); return FALSE;
    case WM_COMMAND:
        if (LOWORD(wParam) != IDYES && LOWORD(wParam) != IDNO && LOWORD(wParam) != IDCANCEL) return FALSE;
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    default: return FALSE;
    }
}

void OnCloseHandle(HWND page, const ProcessPropertiesContext& context) {
    const unsigned value = SelectedRowValue(PageList(page));
    const std::wstring path = SelectedPath(page);
    if (UIL_LangModule.ShowDialogParam(IDD_CLOSE_FILE_HANDLE, page, ConfirmCloseFileProc,
                                       reinterpret_cast<LPARAM>(path.c_str())) != IDYES)
        return;
    // A process that cannot be opened is passed over in silence; a failed close is reported.
    if (CloseHandleInProcess(context.pid, value) == RemoteCloseResult::NotClosed) ShowCloseHandleFailure(page);
}

void OnShellProperties(HWND page) {
    const std::wstring path = SelectedPath(page);
    SHELLEXECUTEINFOW execute{};
    execute.cbSize = sizeof execute;
    execute.fMask = SEE_MASK_INVOKEIDLIST;
    execute.hwnd = page;
    execute.lpVerb = L"properties";
    execute.lpFile = path.c_str();
    execute.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&execute);
}

void OnCommand(HWND page, ProcessPropertiesContext& context, WORD command) {
    switch (command) {
    case IDM_HANDLE_COPY_NAME_PAGE:
        CopyThroughEdit(GetDlgItem(page, IDC_HPAGE_CLIPBOARD), SelectedPath(page).c_str());
        break;
    case IDM_HANDLE_CLOSE_PAGE: OnCloseHandle(page, context); break;
    case IDM_HANDLE_OPEN_FOLDER_PAGE:
        if (context.openInShell) context.openInShell(SelectedPath(page).c_str());
        break;
    case IDM_HANDLE_PROPERTIES: OnShellProperties(page); break;
    default: break;
    }
}

void ShowMenu(HWND page) {
    const PageMenuItem items[] = {
        {L"Copy Pathname", L"Pfad kopieren", IDM_HANDLE_COPY_NAME_PAGE},
        {nullptr, nullptr, 0},
        {L"Close Handle...", L"Handle schließen...", IDM_HANDLE_CLOSE_PAGE},
        {nullptr, nullptr, 0},
        {L"Open Containing Folder", L"Übergeordneten Ordner öffnen", IDM_HANDLE_OPEN_FOLDER_PAGE},
        {L"Properties", L"Eigenschaften", IDM_HANDLE_PROPERTIES, true},
    };
    ShowPageMenu(page, items);
}

void SetUp(HWND page, ProcessPropertiesContext& context) {
    const unsigned columns[] = {IDS_COLUMN_PATH_NAME};
    const int widths[] = {70};
    SetUpHandlePage(page, context, &ProcessPropertiesContext::filesPage, columns, widths, 1);
    HWND list = PageList(page);
    // The system's image list is shared: the list view must not destroy it.
    SetWindowLongPtrW(list, GWL_STYLE, GetWindowLongPtrW(list, GWL_STYLE) | LVS_SHAREIMAGELISTS);
    SHFILEINFOW info{};
    const auto systemImages = reinterpret_cast<HIMAGELIST>(
        SHGetFileInfoW(L"C:\\", 0, &info, sizeof info, SHGFI_SYSICONINDEX | SHGFI_SMALLICON));
    SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(systemImages));
}

constexpr PageBehaviour kFilesPage = {SetUp, Refresh, OnCommand, ShowMenu};

}  // namespace

INT_PTR CALLBACK FilesPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return HandlePageMessage(kFilesPage, page, message, wParam, lParam);
}

}  // namespace lmvx::kobj
