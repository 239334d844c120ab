#include "memory/strings_page.h"

#include <commctrl.h>
#include <shlwapi.h>

#include <atomic>
#include <memory>
#include <string>

#include "finch.h"
#include "memory/memory_ui.h"
#include "memory/string_set.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr UINT_PTR kFilterTimer = 4000;
constexpr UINT kFilterDelay = 500;
constexpr int kProgressStep = 150;
constexpr UINT kCopyCommand = 1;

// Shared by the page and its loader thread: whichever lets go last frees the set.
struct LoadedStrings {
    StringSet* set = StringSetCreate(reinterpret_cast<uintptr_t>(&StringsPageProc));
    std::atomic<bool> pageGone{false};
    ~LoadedStrings() { StringSetFree(set); }
};

struct StringsPage {
    std::shared_ptr<LoadedStrings> strings = std::make_shared<LoadedStrings>();
    UniqueFont font;
    bool loaderStarted = false;
};

struct LoaderJob {
    HWND page;
    unsigned pid;
    kestrel::TL_PROCESSLIST* processList;
    std::shared_ptr<LoadedStrings> strings;
};

StringsPage* PageState(HWND page) { return reinterpret_cast<StringsPage*>(GetWindowLongPtrW(page, DWLP_USER)); }
HWND Control(HWND page, int id) { return GetDlgItem(page, id); }

void InsertString(HWND list, int row, const wchar_t* text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = const_cast<wchar_t*>(text);
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void SetMarquee(HWND bar, bool on) {
    const LONG_PTR style = GetWindowLongPtrW(bar, GWL_STYLE);
    SetWindowLongPtrW(bar, GWL_STYLE, on ? (style | PBS_MARQUEE) : (style & ~static_cast<LONG_PTR>(PBS_MARQUEE)));
    SendMessageW(bar, PBM_SETMARQUEE, on ? TRUE : FALSE, 25);
}

// Fills the list from the loaded set; stops early when the page goes away.
void FillList(const LoaderJob& job) {
    HWND page = job.page;
    HWND list = Control(page, IDC_STRINGS_LIST);
    HWND bar = Control(page, IDC_STRINGS_PROGRESS);
    const int count = StringSetCount(job.strings->set);
    SendMessageW(list, LVM_SETITEMCOUNT, count, 0);
    for (int i = 0; i < count && !job.strings->pageGone; ++i) {
        InsertString(list, i, StringSetItem(job.strings->set, i));
        if (i % kProgressStep == 0) SendMessageW(bar, PBM_SETPOS, 70 * static_cast<long long>(i) / count + 30, 0);
    }
    EnableWindow(list, TRUE);
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    ShowWindow(list, SW_SHOW);
    ShowWindow(Control(page, IDC_STRINGS_STATUS), SW_HIDE);
    ShowWindow(bar, SW_HIDE);
    EnableWindow(Control(page, IDC_STRINGS_FILTER), TRUE);
    // Last: an enabled filter button means the set is complete and the page may read it.
    EnableWindow(Control(page, IDOK), TRUE);
}

DWORD WINAPI LoaderThread(void* parameter) {
    std::unique_ptr<LoaderJob> job(static_cast<LoaderJob*>(parameter));
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_LOWEST);
    const int item = job->processList ? job->processList->GetItemByPID(job->pid) : -1;
    if (item < 0) return 0;
    HWND page = job->page;
    HWND list = Control(page, IDC_STRINGS_LIST);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    EnableWindow(Control(page, IDC_STRINGS_FILTER), FALSE);
    SetMarquee(Control(page, IDC_STRINGS_PROGRESS), true);
    const std::wstring path = job->processList->GetItemPathName(item);
    if (LoadImageStrings(job->strings->set, path.c_str())) {
        SetMarquee(Control(page, IDC_STRINGS_PROGRESS), false);
        FillList(*job);
    } else {
        SetDlgItemTextW(page, IDC_STRINGS_STATUS, UIL_LangModule.GetLangString(IDS_ERR_LOAD_IMAGE_FILE));
        ShowWindow(Control(page, IDC_STRINGS_PROGRESS), SW_HIDE);
    }
    SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, LVSCW_AUTOSIZE);
    return 0;
}

void StartLoader(HWND page) {
    StringsPage* state = PageState(page);
    if (!state || state->loaderStarted) return;
    state->loaderStarted = true;
    ProcessPropertiesContext* context = PageContext(page);
    auto job = std::make_unique<LoaderJob>(LoaderJob{page, context->pid, context->processList, state->strings});
    if (UniqueHandle thread{CreateThread(nullptr, 0, LoaderThread, job.get(), 0, nullptr)}) job.release();
}

// Shows the strings of the set that match the filter text, in set order.
void ApplyFilter(HWND page) {
    HWND list = Control(page, IDC_STRINGS_LIST);
    const StringSet* set = PageState(page)->strings->set;
    const std::wstring pattern = L"*" + ControlText(page, IDC_STRINGS_FILTER, 256) + L"*";
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(list);
    int row = 0;
    for (int i = 0, count = StringSetCount(set); i < count; ++i) {
        const wchar_t* text = StringSetItem(set, i);
        if (PathMatchSpecW(text, pattern.c_str())) InsertString(list, row++, text);
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

// Filters 500 ms after the last change of the filter text.
void OnFilterChanged(HWND page) {
    const std::wstring text = ControlText(page, IDC_STRINGS_FILTER, 256);
    if (text == ControlText(page, IDC_STRINGS_LAST_FILTER, 256)) return;
    SetDlgItemTextW(page, IDC_STRINGS_LAST_FILTER, text.c_str());
    SetTimer(page, kFilterTimer, kFilterDelay, nullptr);
}

void CopySelected(HWND page) {
    HWND list = Control(page, IDC_STRINGS_LIST);
    const int row = ListView_GetNextItem(list, -1, LVNI_SELECTED);
    if (row < 0) return;
    wchar_t text[257] = {};
    ListView_GetItemText(list, row, 0, text, 257);
    if (text[0] == L'\0') return;
    HWND clipboardEdit = Control(page, IDC_STRINGS_CLIPBOARD);
    SetWindowTextW(clipboardEdit, text);
    SendMessageW(clipboardEdit, EM_SETSEL, 0, -1);
    SendMessageW(clipboardEdit, WM_COPY, 0, 0);
}

void ShowListMenu(HWND page) {
    HWND list = Control(page, IDC_STRINGS_LIST);
    if (ListView_GetNextItem(list, -1, LVNI_SELECTED) < 0) return;
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return;
    AppendMenuW(menu.Get(), MF_STRING, kCopyCommand, wren::HardcodeLangString(L"&Copy", L"&Kopieren"));
    SetMenuDefaultItem(menu.Get(), kCopyCommand, FALSE);
    POINT at;
    GetCursorPos(&at);
    if (TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, page, nullptr) == kCopyCommand) {
        CopySelected(page);
    }
}

BOOL OnInitDialog(HWND page, LPARAM initParam) {
    wren::Embold(page, IDC_STRINGS_TITLE);
    wren::Embold(page, IDC_STRINGS_FILTER_LABEL);
    ProcessPropertiesContext* context = KeepPageContext(page, initParam);
    if (!context) {
        MessageBoxW(page, UIL_LangModule.GetLangString(IDS_UNEXPECTED_ERROR),
                    UIL_LangModule.GetLangString(IDS_PROCESS_PROPERTIES), MB_OK | MB_ICONERROR);
        DestroyWindow(page);
        return FALSE;
    }
    context->stringsPage = page;
    auto state = std::make_unique<StringsPage>();
    HWND list = Control(page, IDC_STRINGS_LIST);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(list, 0, UIL_LangModule.GetLangString(IDS_COLUMN_VALUE), 348, 0);
    DecorateButton(page, IDC_STRINGS_COPY, IDI_MEMORY);
    DecorateButton(page, IDOK, IDI_MEMORY);
    state->font = LoadMonospacedFont();
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(state->font.Get()), FALSE);
    SendDlgItemMessageW(page, IDC_STRINGS_FILTER, WM_SETFONT, reinterpret_cast<WPARAM>(state->font.Get()), FALSE);
    SetWindowLongPtrW(page, DWLP_USER, reinterpret_cast<LONG_PTR>(state.release()));
    return TRUE;
}

void OnCommand(HWND page, int id, int code) {
    switch (id) {
    case IDOK: ApplyFilter(page); break;
    case IDC_STRINGS_COPY: CopySelected(page); break;
    case IDC_STRINGS_FILTER:
        if (code == EN_CHANGE) OnFilterChanged(page);
        break;
    default: break;
    }
}

void OnTimer(HWND page, UINT_PTR timer) {
    if (timer != kFilterTimer) return;
    KillTimer(page, kFilterTimer);
    ApplyFilter(page);
}

BOOL OnNotify(HWND page, const NMHDR* header) {
    if (header->idFrom == IDC_STRINGS_LIST && header->code == NM_RCLICK) ShowListMenu(page);
    return FALSE;
}

void OnDestroy(HWND page) {
    KillTimer(page, kFilterTimer);
    std::unique_ptr<StringsPage> state(PageState(page));
    SetWindowLongPtrW(page, DWLP_USER, 0);
    if (state) state->strings->pageGone = true;
}

}  // namespace

INT_PTR CALLBACK StringsPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_SHOWWINDOW:
        if (wParam) StartLoader(page);
        return FALSE;
    case WM_COMMAND: OnCommand(page, LOWORD(wParam), HIWORD(wParam)); return TRUE;
    case WM_TIMER: OnTimer(page, wParam); return TRUE;
    case WM_NOTIFY: return OnNotify(page, reinterpret_cast<const NMHDR*>(lParam));
    case WM_DESTROY: OnDestroy(page); return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx
