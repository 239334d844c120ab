// The Token page: the account the process runs under, its SID and session, and the groups and privileges
// of its token with their flags. Read once at creation; later changes of the token are not shown.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/shared_icons.h"
#include "finch.h"
#include "props/page_common.h"
#include "props/page_texts.h"
#include "props/process_info_pages.h"
#include "props/properties_context.h"
#include "props/token_reader.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr int kPrivilegeImageAny = 0;    // the privilege has some attribute
constexpr int kPrivilegeImageNone = 1;   // its attributes are 0

std::wstring FlagText(const std::vector<unsigned>& textIds) {
    std::wstring text;
    for (unsigned id : textIds) text += LangText(id);
    return text;
}

void AttachImages(HWND list, std::initializer_list<unsigned short> iconIds) {
    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 0, static_cast<int>(iconIds.size()));
    for (unsigned short id : iconIds) ImageList_AddIcon(images, SharedIconById(id).small);
    ListView_SetImageList(list, images, LVSIL_SMALL);   // the list view destroys it with itself
}

// The column takes the header's width left of the other columns, less 20 pixels.
void FillHeader(HWND list, int column) {
    RECT client{};
    GetClientRect(list, &client);
    int others = 0;
    for (int i = 0; i < column; ++i) others += ListView_GetColumnWidth(list, i);
    ListView_SetColumnWidth(list, column, std::max<int>(60, client.right - others - 20));
}

void SetUpLists(HWND groups, HWND privileges) {
    ListView_SetExtendedListViewStyle(groups, LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(groups, 0, LangText(IDS_COLUMN_GROUP_NAME).c_str(), 180, 0);
    UIP_ListViewAddColumn(groups, 1, LangText(IDS_COLUMN_FLAGS).c_str(), 180, 0);
    FillHeader(groups, 1);
    AttachImages(groups, {IDI_GROUP});

    ListView_SetExtendedListViewStyle(privileges, LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(privileges, 0, LangText(IDS_COLUMN_PRIVILEGE).c_str(), 180, 0);
    UIP_ListViewAddColumn(privileges, 1, LangText(IDS_COLUMN_FLAGS).c_str(), 180, 0);
    FillHeader(privileges, 1);
    UIP_ListViewAddColumn(privileges, 2, LangText(IDS_COLUMN_DESCRIPTION).c_str(), 200, 0);
    AttachImages(privileges, {IDI_PRIVILEGE_ENABLED, IDI_PRIVILEGE_DISABLED});
}

int AddRow(HWND list, const std::wstring& name, int image) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = ListView_GetItemCount(list);
    item.pszText = const_cast<wchar_t*>(name.c_str());
    item.iImage = image;
    return static_cast<int>(SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

void FillLists(HWND groups, HWND privileges, const TokenReport& token) {
    for (const TokenGroupRow& group : token.groups) {
        const int row = AddRow(groups, group.name, 0);
        if (row >= 0) wren::ListViewSetItemText(groups, row, 1, FlagText(GroupFlagTextIds(group.attributes)).c_str());
    }
    for (const TokenPrivilegeRow& privilege : token.privileges) {
        const int row = AddRow(privileges, privilege.name, privilege.attributes ? kPrivilegeImageAny : kPrivilegeImageNone);
        if (row < 0) continue;
        wren::ListViewSetItemText(privileges, row, 1, FlagText(PrivilegeFlagTextIds(privilege.attributes)).c_str());
        if (!privilege.displayName.empty()) wren::ListViewSetItemText(privileges, row, 2, privilege.displayName.c_str());
    }
    if (ListView_GetItemCount(groups) > 0) {
        ListView_SetColumnWidth(groups, 0, LVSCW_AUTOSIZE);
        FillHeader(groups, 1);
    }
    ListView_SetColumnWidth(privileges, 2, LVSCW_AUTOSIZE);
}

INT_PTR OnInitDialog(HWND page, LPARAM initParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, initParam);
    if (!context) return EndPageWithMessage(page, IDS_UNEXPECTED_ERROR, MB_ICONERROR);
    SetBoldTitle(page);
    HWND groups = GetDlgItem(page, IDC_TOKEN_GROUPS);
    HWND privileges = GetDlgItem(page, IDC_TOKEN_PRIVILEGES);
    SetUpLists(groups, privileges);
    return TRUE;
}

// The token is read once, when the page is first shown (the account and privilege look-ups are slow).
void FillToken(HWND page, unsigned pid) {
    const TokenReport token = ReadProcessToken(pid);
    if (!token.opened) return;   // the fields and lists stay empty
    SetDlgItemTextW(page, IDC_TOKEN_SESSION, token.session.c_str());
    SetDlgItemTextW(page, IDC_TOKEN_USER, token.user.c_str());
    SetDlgItemTextW(page, IDC_TOKEN_SID, token.sid.c_str());
    FillLists(GetDlgItem(page, IDC_TOKEN_GROUPS), GetDlgItem(page, IDC_TOKEN_PRIVILEGES), token);
}

INT_PTR OnShowWindow(HWND page, WPARAM shown) {
    const ProcessPropertiesContext* context = PageContext(page);
    if (!context) return EndPageWithMessage(page, IDS_UNEXPECTED_ERROR, MB_ICONERROR);
    if (IsFirstShowing(page, shown)) FillToken(page, context->pid);
    return FALSE;
}

}  // namespace

INT_PTR CALLBACK TokenPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_SHOWWINDOW: return OnShowWindow(page, wParam);
    case WM_DRAWITEM: return DrawPageOwnerItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    }
    return FALSE;
}

}  // namespace lmvx
