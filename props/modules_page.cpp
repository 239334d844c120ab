#include "props/modules_page.h"

#include <commctrl.h>
#include <shellapi.h>

#include <string>

#include "common/owner_button.h"
#include "common/shell_open.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "kestrel.h"
#include "props/page_helpers.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

namespace {

struct ModuleColumn {
    unsigned titleId;
    int width;   // 0: hidden until the user widens it; it carries data for the details below
};

constexpr ModuleColumn kColumns[] = {
    {IDS_COLUMN_MODULE, 255},       {IDS_COLUMN_COMPANY_NAME, 170}, {IDS_COLUMN_PRODUCT_NAME, 0},
    {IDS_COLUMN_PATH_NAME, 0},      {IDS_COLUMN_BASE_ADDRESS, 0},   {IDS_COLUMN_BASE_SIZE, 0},
};

HWND ModuleList(HWND page) { return GetDlgItem(page, IDC_MODULES_LIST); }

HICON ShellIcon(const wchar_t* name, DWORD attributes, UINT size) {
    SHFILEINFOW info{};
    SHGetFileInfoW(name, attributes, &info, sizeof info, SHGFI_ICON | size | SHGFI_USEFILEATTRIBUTES);
    return info.hIcon;
}

void SetUpList(HWND list) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    int index = 0;
    for (const ModuleColumn& column : kColumns) UIP_ListViewAddColumn(list, index++, Text(column.titleId), column.width, 0);
    // Image 0 is a row still loading, image 1 a loaded one; both show the shell's ".dll" icon.
    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR24 | ILC_MASK, 1, 5);
    ImageList_SetBkColor(images, RGB(255, 255, 255));
    UniqueIcon dllIcon(ShellIcon(L".dll", FILE_ATTRIBUTE_NORMAL, SHGFI_SMALLICON));
    for (int copy = 0; copy < 3; ++copy) ImageList_AddIcon(images, dllIcon.Get());
    ListView_SetImageList(list, images, LVSIL_SMALL);   // destroyed with the list
}

BOOL OnInitDialog(HWND page, LPARAM lParam) {
    if (!KeepPageContext(page, lParam)) {
        EndPageWithoutContext(page);
        return FALSE;
    }
    wren::Embold(page, IDC_MODULES_TITLE);
    wren::Embold(page, IDC_MODULES_DESCRIPTION);
    SetUpList(ModuleList(page));
    StartModuleLoader(ModuleList(page), PageContext(page)->pid);
    // Neither control destroys its icon: the page does at WM_DESTROY.
    SendDlgItemMessageW(page, IDC_MODULES_ICON, STM_SETICON,
                        reinterpret_cast<WPARAM>(ShellIcon(L".dll", FILE_ATTRIBUTE_NORMAL, SHGFI_LARGEICON)), 0);
    SendDlgItemMessageW(page, IDC_MODULES_OPEN_FOLDER, WM_SETICON, ICON_SMALL,
                        reinterpret_cast<LPARAM>(ShellIcon(L"", FILE_ATTRIBUTE_DIRECTORY, SHGFI_SMALLICON)));
    return TRUE;
}

void OnDestroy(HWND page) {
    HWND list = ModuleList(page);
    for (int row = ListView_GetItemCount(list) - 1; row >= 0; --row) {
        LVITEMW item{};
        item.mask = LVIF_PARAM;
        item.iItem = row;
        if (ListView_GetItem(list, &item)) delete reinterpret_cast<kestrel::_IMAGEINFO*>(item.lParam);
    }
    DestroyIcon(reinterpret_cast<HICON>(SendDlgItemMessageW(page, IDC_MODULES_ICON, STM_GETICON, 0, 0)));
    DestroyIcon(reinterpret_cast<HICON>(SendDlgItemMessageW(page, IDC_MODULES_OPEN_FOLDER, WM_GETICON, ICON_SMALL, 0)));
}

std::wstring Cell(HWND list, int row, int column) {
    wchar_t text[256] = {};
    ListView_GetItemText(list, row, column, text, 256);
    return text;
}

void ShowDetails(HWND page) {
    HWND list = ModuleList(page);
    const int mark = ListView_GetSelectionMark(list);
    if (mark < 0) {
        SetDlgItemTextW(page, IDC_MODULES_DESCRIPTION, Text(IDS_SELECT_MODULE));
        for (int id : {IDC_MODULES_PRODUCT, IDC_MODULES_COMPANY, IDC_MODULES_PATH}) SetDlgItemTextW(page, id, L"");
        return;
    }
    // The same row again is not read again.
    if (static_cast<int>(GetDlgItemInt(page, IDC_MODULES_SHOWN_ROW, nullptr, TRUE)) == mark) return;
    SetDlgItemInt(page, IDC_MODULES_SHOWN_ROW, static_cast<UINT>(mark), TRUE);
    SetDlgItemTextW(page, IDC_MODULES_DESCRIPTION, Cell(list, mark, 0).c_str());
    SetDlgItemTextW(page, IDC_MODULES_PRODUCT, Cell(list, mark, 2).c_str());
    SetDlgItemTextW(page, IDC_MODULES_COMPANY, Cell(list, mark, 1).c_str());
    SetDlgItemTextW(page, IDC_MODULES_PATH, Cell(list, mark, 3).c_str());
}

void ShowMenu(HWND page) {
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return;
    using wren::HardcodeLangString;
    AppendMenuW(menu.Get(), MF_STRING, IDM_MODULE_COPY_DESCRIPTION,
                HardcodeLangString(L"Copy Description", L"Beschreibung kopieren"));
    AppendMenuW(menu.Get(), MF_STRING, IDM_MODULE_COPY_PATHNAME, HardcodeLangString(L"Copy Pathname", L"Dateinamen kopieren"));
    AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.Get(), MF_STRING, IDM_MODULE_OPEN_FOLDER,
                HardcodeLangString(L"Open Containing Folder", L"\u00DCbergeordneten Ordner \u00F6ffnen"));
    AppendMenuW(menu.Get(), MF_STRING, IDM_MODULE_PROPERTIES, HardcodeLangString(L"Properties", L"Eigenschaften"));
    SetMenuDefaultItem(menu.Get(), IDM_MODULE_PROPERTIES, FALSE);
    TrackMenuAndSend(page, menu.Get());
}

INT_PTR OnNotify(HWND page, const NMHDR* header) {
    if (header->idFrom != IDC_MODULES_LIST) return FALSE;
    ShowDetails(page);
    HWND list = ModuleList(page);
    if (header->code == NM_RCLICK && ListView_GetSelectionMark(list) >= 0 && ListView_GetItemCount(list) > 0) {
        ShowMenu(page);
    } else if (header->code == NM_DBLCLK) {
        SendMessageW(page, WM_COMMAND, MAKEWPARAM(IDM_MODULE_PROPERTIES, 0), 0);
    }
    return FALSE;
}

void CopyAll(HWND edit) {
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_COPY, 0, 0);
}

std::wstring PathField(HWND page, int capacity) {
    std::wstring path(static_cast<size_t>(capacity), L'\0');
    path.resize(static_cast<size_t>(GetDlgItemTextW(page, IDC_MODULES_PATH, path.data(), capacity)));
    return path;
}

void ShowFileProperties(HWND page) {
    const std::wstring path = PathField(page, 256);
    if (path.empty()) return;
    SHELLEXECUTEINFOW execute{};
    execute.cbSize = sizeof execute;
    execute.fMask = SEE_MASK_INVOKEIDLIST;
    execute.hwnd = page;
    execute.lpVerb = L"properties";
    execute.lpFile = path.c_str();
    execute.lpParameters = L"";
    execute.nShow = SW_SHOW;
    ShellExecuteExW(&execute);
}

void OnCommand(HWND page, unsigned id) {
    switch (id) {
    case IDM_MODULE_COPY_DESCRIPTION: {
        wchar_t description[256] = {};
        GetDlgItemTextW(page, IDC_MODULES_DESCRIPTION, description, 256);
        SetDlgItemTextW(page, IDC_MODULES_CLIPBOARD, description);
        CopyAll(GetDlgItem(page, IDC_MODULES_CLIPBOARD));
        break;
    }
    case IDM_MODULE_COPY_PATHNAME:
        CopyAll(GetDlgItem(page, IDC_MODULES_PATH));
        SendDlgItemMessageW(page, IDC_MODULES_PATH, EM_SETSEL, static_cast<WPARAM>(-1), 0);
        break;
    case IDM_MODULE_OPEN_FOLDER:
    case IDC_MODULES_OPEN_FOLDER: {
        const std::wstring path = PathField(page, 512);
        if (!path.empty()) OpenInShell(path.c_str());
        break;
    }
    case IDM_MODULE_PROPERTIES: ShowFileProperties(page); break;
    default: break;
    }
}

}  // namespace

INT_PTR CALLBACK ModulesPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_SHOWWINDOW:
        if (!PageContext(page)) EndPageWithoutContext(page);
        return FALSE;
    case WM_NOTIFY: return OnNotify(page, reinterpret_cast<const NMHDR*>(lParam));
    case WM_COMMAND: OnCommand(page, LOWORD(wParam)); return TRUE;
    case WM_DRAWITEM: return DrawOwnerButton(page, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_DESTROY: OnDestroy(page); return FALSE;
    default: return FALSE;
    }
}

}  // namespace lmvx
