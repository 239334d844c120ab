// The Start page: when the process started, its command line, the process that started it and its
// environment, read from the process itself. Filled once at creation.
#include <windows.h>
#include <commctrl.h>

#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

#include "app/shared_icons.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "kestrel.h"
#include "props/page_common.h"
#include "props/page_services.h"
#include "props/page_texts.h"
#include "props/process_info_pages.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

struct StartPageState {
    UniqueIcon processIcon;
    UniqueIcon parentIcon;
};


ULONGLONG FileTimeOf(const SYSTEMTIME& time) {
    FILETIME file{};
    if (!SystemTimeToFileTime(&time, &file)) return 0;
    return (static_cast<ULONGLONG>(file.dwHighDateTime) << 32) | file.dwLowDateTime;
}

// The item of the process's parent; -1 when it has gone. A process that got the parent's PID after this
// one started is not its parent.
int ParentItem(const kestrel::TL_PROCESSLIST& list, int item) {
    const unsigned parentPid = list.GetItemParentPID(item);
    if (parentPid == 0 || parentPid == list.GetItemPID(item)) return -1;
    const int parent = list.GetItemByPID(parentPid);
    if (parent < 0) return -1;
    const ULONGLONG parentStart = FileTimeOf(list.GetItemCreationTime(parent));
    const ULONGLONG childStart = FileTimeOf(list.GetItemCreationTime(item));
    return parentStart != 0 && childStart != 0 && parentStart > childStart ? -1 : parent;
}

void ShowControls(HWND page, std::initializer_list<int> ids) {
    for (int id : ids) ShowWindow(GetDlgItem(page, id), SW_SHOW);
}

void FillParent(HWND page, StartPageState& state, const kestrel::TL_PROCESSLIST& list, int item) {
    const int parent = ParentItem(list, item);
    if (parent < 0) {
        ShowControls(page, {IDC_START_PARENT_GONE, IDC_START_PARENT_ICON});
        SendDlgItemMessageW(page, IDC_START_PARENT_ICON, STM_SETICON,
                            reinterpret_cast<WPARAM>(SharedIconById(IDI_UNKNOWN_PROCESS).large), 0);
        return;
    }
    ShowControls(page, {IDC_START_PARENT_NAME, IDC_START_PARENT_COMPANY, IDC_START_PARENT_ICON});
    SetDlgItemTextW(page, IDC_START_PARENT_PID, FormatText(L"%d", list.GetItemPID(parent)).c_str());
    SetDlgItemTextW(page, IDC_START_PARENT_NAME, list.GetItemDisplayName(parent));
    SetDlgItemTextW(page, IDC_START_PARENT_COMPANY, list.GetItemInfoCompanyName(parent));
    state.parentIcon.Reset(CopyIcon(list.GetItemIcon(parent)));
    SendDlgItemMessageW(page, IDC_START_PARENT_ICON, STM_SETICON, reinterpret_cast<WPARAM>(state.parentIcon.Get()), 0);
}

std::wstring StartTimeText(const SYSTEMTIME& created) {
    SYSTEMTIME today{};
    GetLocalTime(&today);
    std::wstring day;
    switch (StartDayOf(created, today)) {
    case StartDay::Unknown: return LangText(IDS_UNKNOWN);
    case StartDay::Today: day = LangText(IDS_TODAY); break;
    case StartDay::Yesterday: day = LangText(IDS_YESTERDAY); break;
    case StartDay::Date: day = FormatText(LangText(IDS_DATE_FORMAT).c_str(), created.wMonth, created.wDay, created.wYear); break;
    }
    return FormatText(L"%s, %.2d:%.2d:%.2d", day.c_str(), created.wHour, created.wMinute, created.wSecond);
}

void SetUpEnvironmentList(HWND list) {
    SetUpItemValueList(list, 165, 247);
    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR24 | ILC_MASK, 0, 256);
    ImageList_SetBkColor(images, RGB(255, 255, 255));
    ImageList_AddIcon(images, SharedIconById(IDI_DETAILS_INFO).small);
    ListView_SetImageList(list, images, LVSIL_SMALL);   // the list view destroys it with itself
}

// The environment as the process holds it now; empty when it cannot be read.
std::vector<wchar_t> EnvironmentBlockOf(unsigned pid) {
    unsigned size = 0;
    if (!kestrel::PDM_GetProcessEnvironmentBlock(pid, nullptr, &size) || size == 0) return {};
    std::vector<wchar_t> block(size);
    if (!kestrel::PDM_GetProcessEnvironmentBlock(pid, block.data(), &size)) return {};
    block.resize(size);
    return block;
}

void FillEnvironment(HWND list, unsigned pid) {
    const std::vector<wchar_t> block = EnvironmentBlockOf(pid);
    int row = 0;
    for (const EnvironmentEntry& entry : CutEnvironmentBlock(std::wstring_view(block.data(), block.size()))) {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = row;
        item.pszText = const_cast<wchar_t*>(entry.name.c_str());
        item.iImage = 0;
        row = static_cast<int>(SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
        if (row < 0) break;
        wren::ListViewSetItemText(list, row, 1, entry.value.c_str());
        ++row;
    }
    ListView_SetColumnWidth(list, 0, LVSCW_AUTOSIZE);
    ListView_SetColumnWidth(list, 1, LVSCW_AUTOSIZE);
}

INT_PTR OnInitDialog(HWND page, LPARAM initParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, initParam);
    if (!context || !context->processList) return EndPageWithMessage(page, IDS_UNEXPECTED_ERROR, MB_ICONERROR);
    SetBoldTitle(page);
    if (!wren::IsThemeActive()) {
        wren::EmStaticEdge(page, IDC_START_COMMAND_LINE);
        wren::EmStaticEdge(page, IDC_START_ENVIRONMENT);
    }
    const kestrel::TL_PROCESSLIST& list = *context->processList;
    const int item = list.GetItemByPID(context->pid);
    if (item < 0) return EndPageWithMessage(page, IDS_PROCESS_GONE, MB_ICONWARNING);

    auto state = std::make_unique<StartPageState>();
    APIP_SetWindowFont(GetDlgItem(page, IDC_START_PARENT_NAME), APIP_hFontBold, TRUE);
    wren::Embold(page, IDC_START_PARENT_CAPTION);
    state->processIcon = FillProcessHeader(page, list, item);
    if (const kestrel::_TASKDATASTATIC* statics = list.GetItemStaticData(item))
        SetDlgItemTextW(page, IDC_START_COMMAND_LINE, statics->GetCommandLineW());
    FillParent(page, *state, list, item);
    SetDlgItemTextW(page, IDC_START_TIME, StartTimeText(list.GetItemCreationTime(item)).c_str());
    SetUpEnvironmentList(GetDlgItem(page, IDC_START_ENVIRONMENT));
    KeepPageState(page, std::move(state));   // the environment is read when the page is first shown
    return TRUE;
}

}  // namespace

INT_PTR CALLBACK StartPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_SHOWWINDOW:
        if (IsFirstShowing(page, wParam) && PageContext(page))
            FillEnvironment(GetDlgItem(page, IDC_START_ENVIRONMENT), PageContext(page)->pid);
        return FALSE;
    case WM_COMMAND: return EndPageOnCloseCommand(page, wParam);
    case WM_DRAWITEM: return DrawPageOwnerItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_NCDESTROY: FreePageState<StartPageState>(page); return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx
