#include "options/options_dialog.h"

#include <commctrl.h>

#include "finch.h"
#include "options/options_pages.h"
#include "options/tree_walk.h"
#include "resource.h"

namespace lmvx {
namespace {

struct PageEntry {
    UINT labelId;
    UINT dialogId;
    DLGPROC procedure;
};

// Tree order below the root, which is also the order in which OK reaches the pages.
constexpr PageEntry kPages[] = {
    {IDS_OPTIONS_REPLACE_TASKMGR, IDD_OPTIONS_TASKMANAGER, TaskManagerPageProc},
    {IDS_OPTIONS_TRAY_ICON, IDD_OPTIONS_TRAY, TrayIconPageProc},
    {IDS_OPTIONS_PROCESS_LIST, IDD_OPTIONS_PROCESS_LIST, ProcessListPageProc},
};

struct TreeControl {
    HWND tree;
    HTREEITEM FirstChild(HTREEITEM item) const { return TreeView_GetChild(tree, item); }
    HTREEITEM NextSibling(HTREEITEM item) const { return TreeView_GetNextSibling(tree, item); }
    HTREEITEM Parent(HTREEITEM item) const { return TreeView_GetParent(tree, item); }
};

HWND PageOfItem(HWND tree, HTREEITEM item) {
    TVITEMW data{};
    data.mask = TVIF_PARAM | TVIF_HANDLE;
    data.hItem = item;
    if (!TreeView_GetItem(tree, &data)) return nullptr;
    return reinterpret_cast<HWND>(data.lParam);
}

template <typename Visit>
void ForEachItem(HWND tree, Visit visit) {
    WalkTree(TreeControl{tree}, TreeView_GetRoot(tree), visit);
}

HTREEITEM InsertItem(HWND tree, HTREEITEM parent, UINT labelId, HWND page) {
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = const_cast<wchar_t*>(UIL_LangModule.GetLangString(labelId));
    insert.item.lParam = reinterpret_cast<LPARAM>(page);
    return TreeView_InsertItem(tree, &insert);
}

// A page placed over the frame's page area, hidden until its item is selected.
HWND CreatePage(HWND frame, const PageEntry& entry, LPARAM hooks) {
    HWND page = UIL_LangModule.LoadDialogParam(entry.dialogId, frame, entry.procedure, hooks);
    if (!page) return nullptr;
    RECT area{};
    GetWindowRect(GetDlgItem(frame, IDC_OPTIONS_PAGE_AREA), &area);
    MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&area), 2);
    SetWindowPos(page, HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_HIDEWINDOW);
    return page;
}

INT_PTR OnInitDialog(HWND frame, LPARAM hooks) {
    HWND tree = GetDlgItem(frame, IDC_OPTIONS_TREE);
    const HTREEITEM root = InsertItem(tree, TVI_ROOT, IDS_OPTIONS_ROOT, nullptr);
    HTREEITEM first = nullptr;
    for (const PageEntry& entry : kPages) {
        const HTREEITEM item = InsertItem(tree, root, entry.labelId, CreatePage(frame, entry, hooks));
        if (!first) first = item;
    }
    ForEachItem(tree, [tree](HTREEITEM item) { TreeView_Expand(tree, item, TVE_EXPAND); });
    // Selecting the first page's item shows that page through TVN_SELCHANGEDW.
    TreeView_SelectItem(tree, first);
    return TRUE;
}

void OnSelectionChanged(HWND tree) {
    HWND selected = PageOfItem(tree, TreeView_GetSelection(tree));
    if (selected) ShowWindow(selected, SW_SHOW);
    ForEachItem(tree, [tree, selected](HTREEITEM item) {
        HWND page = PageOfItem(tree, item);
        if (page && page != selected) ShowWindow(page, SW_HIDE);
    });
}

void OnOk(HWND frame) {
    HWND tree = GetDlgItem(frame, IDC_OPTIONS_TREE);
    ForEachItem(tree, [tree](HTREEITEM item) {
        if (HWND page = PageOfItem(tree, item)) SendMessageW(page, WM_COMMAND, IDOK, 0);
    });
    EndDialog(frame, 1);
}

INT_PTR OnNotify(const NMHDR& header) {
    if (header.idFrom == IDC_OPTIONS_TREE && header.code == TVN_SELCHANGEDW) OnSelectionChanged(header.hwndFrom);
    return FALSE;
}

INT_PTR OnCommand(HWND frame, WORD command) {
    switch (command) {
    case IDOK: OnOk(frame); return TRUE;
    // The pages are not told: nothing they show has been stored. The result is the same as for OK.
    case IDCANCEL: EndDialog(frame, 1); return TRUE;
    }
    return FALSE;
}

}  // namespace

INT_PTR CALLBACK OptionsFrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(frame, lParam);
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_COMMAND: return OnCommand(frame, LOWORD(wParam));
    }
    return FALSE;
}

INT_PTR ShowOptionsDialog(HWND owner, const OptionsDialogHooks& hooks) {
    return UIL_LangModule.ShowDialogParam(IDD_OPTIONS, owner, OptionsFrameProc, reinterpret_cast<LPARAM>(&hooks));
}

}  // namespace lmvx
