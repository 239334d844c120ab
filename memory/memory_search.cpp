#include "memory/memory_search.h"

#include <commctrl.h>
#include <shlwapi.h>

#include <memory>
#include <string>

#include "finch.h"
#include "memory/memory_search_scan.h"
#include "memory/memory_ui.h"
#include "memory/process_memory.h"
#include "memory/search_pattern.h"
#include "resource.h"

namespace lmvx {
namespace {

struct SearchWindow {
    MemoryViewerContext* viewer = nullptr;
    HWND dialog = nullptr;
    std::unique_ptr<SearchPattern> pattern;
    UniqueFont listFont;
    UniqueFont textFont;
};

SearchWindow* WindowOf(HWND dialog) {
    return reinterpret_cast<SearchWindow*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
}

HWND ResultList(HWND dialog) { return GetDlgItem(dialog, IDC_SEARCH_RESULTS); }

// A match goes to the top of the list.
void OnFound(void* context, uint32_t address, const wchar_t* text) {
    auto* window = static_cast<SearchWindow*>(context);
    const SearchPattern& pattern = *window->pattern;
    if (pattern.IsPlain() ? !pattern.Matches(text) : !PathMatchSpecW(text, pattern.ShellPattern().c_str())) return;
    std::wstring addressText = FormatText(L"0x%.8X", address);
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.pszText = addressText.data();
    const int row = ListView_InsertItem(ResultList(window->dialog), &item);
    if (row >= 0) ListView_SetItemText(ResultList(window->dialog), row, 1, const_cast<wchar_t*>(text));
}

void PumpMessages(void*) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

DWORD WINAPI ProgressThread(void* parameter) {
    auto* window = static_cast<SearchWindow*>(parameter);
    UIL_LangModule.ShowDialogParam(IDD_MEMORY_SEARCH_PROGRESS, window->dialog, SearchProgressProc,
                                   reinterpret_cast<LPARAM>(&window->viewer->searchState));
    return 0;
}

// The scan runs here, on the dialog's thread, which keeps its windows alive by pumping while it works;
// the progress dialog runs on a thread of its own.
void OnSearch(HWND dialog) {
    SearchWindow* window = WindowOf(dialog);
    MemorySearchState& state = window->viewer->searchState;
    if (state.running) return;
    // Running is set before the progress dialog starts, so that its first tick cannot find the scan over.
    state.cancel = 0;
    state.running = 1;
    state.bytesRead = 0;
    state.totalBytes = 0;
    ListView_DeleteAllItems(ResultList(dialog));
    window->pattern = std::make_unique<SearchPattern>(ControlText(dialog, IDC_SEARCH_TEXT, 256));
    UniqueHandle progress(CreateThread(nullptr, 0, ProgressThread, window, 0, nullptr));
    if (!progress) {
        state.running = 0;
        return;
    }
    if (UniqueHandle process = OpenProcessMemory(window->viewer->processId)) {
        SearchProcessMemory(process.Get(), state, {OnFound, PumpMessages, window});
    }
    state.running = 0;
    // The progress dialog ends on its next tick; it must not outlive the state it reads.
    HANDLE waitFor = progress.Get();
    while (MsgWaitForMultipleObjects(1, &waitFor, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) PumpMessages(nullptr);
}

void OnOpenAddress(HWND dialog) {
    SearchWindow* window = WindowOf(dialog);
    HWND list = ResultList(dialog);
    int row = ListView_GetSelectionMark(list);
    if (row < 0) row = 0;
    wchar_t address[257] = {};
    ListView_GetItemText(list, row, 0, address, 257);
    HWND viewer = window->viewer->dialog;
    if (address[0] == L'\0' || !viewer) return;
    SetDlgItemTextW(viewer, IDC_MEM_ADDRESS, address);
    SetForegroundWindow(viewer);
    SendMessageW(viewer, WM_COMMAND, IDOK, 0);
}

void SetUpList(HWND list, HFONT font) {
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(list, 0, UIL_LangModule.GetLangString(IDS_COLUMN_ADDRESS), 100, 0);
    UIP_ListViewAddColumn(list, 1, UIL_LangModule.GetLangString(IDS_COLUMN_STRING), 300, 0);
    ListView_SetColumnWidth(list, 1, LVSCW_AUTOSIZE_USEHEADER);
    ListView_SetColumnWidth(list, 1, ListView_GetColumnWidth(list, 1) - 20);
}

BOOL OnInitDialog(HWND dialog, SearchWindow* window) {
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window));
    window->dialog = dialog;
    window->viewer->search = dialog;
    DecorateButton(dialog, IDC_MEM_SEARCH, IDI_MEMORY);
    wchar_t caption[256];
    APIP_FormatString(caption, sizeof caption, UIL_LangModule.GetLangString(IDS_SEARCH_MEMORY_CAPTION),
                      window->viewer->processId);
    SetWindowTextW(dialog, caption);
    window->listFont = LoadMonospacedFont();
    window->textFont = LoadMonospacedFont();
    SendDlgItemMessageW(dialog, IDC_SEARCH_TEXT, WM_SETFONT, reinterpret_cast<WPARAM>(window->textFont.Get()), FALSE);
    SetUpList(ResultList(dialog), window->listFont.Get());
    // A second modal dialog on the viewer's thread; the viewer stays usable beside it.
    if (window->viewer->dialog) EnableWindow(window->viewer->dialog, TRUE);
    return TRUE;
}

void OnCommand(HWND dialog, int id) {
    switch (id) {
    case IDC_MEM_SEARCH: OnSearch(dialog); break;
    case IDOK:
    case IDC_SEARCH_OPEN_ADDRESS: OnOpenAddress(dialog); break;
    case IDCANCEL:
        WindowOf(dialog)->viewer->searchState.cancel = 1;
        EndDialog(dialog, IDCANCEL);
        break;
    default: break;
    }
}

BOOL OnNotify(HWND dialog, const NMHDR* header) {
    if (header->idFrom == IDC_SEARCH_RESULTS && header->code == NM_DBLCLK) OnOpenAddress(dialog);
    return FALSE;
}

void OnDestroy(HWND dialog) {
    SearchWindow* window = WindowOf(dialog);
    if (!window) return;
    window->viewer->search = nullptr;
    SendMessageW(ResultList(dialog), WM_SETFONT, 0, FALSE);
    window->listFont.Reset();
}

}  // namespace

INT_PTR CALLBACK MemorySearchProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, reinterpret_cast<SearchWindow*>(lParam));
    case WM_COMMAND: OnCommand(dialog, LOWORD(wParam)); return TRUE;
    case WM_NOTIFY: return OnNotify(dialog, reinterpret_cast<const NMHDR*>(lParam));
    case WM_DESTROY: OnDestroy(dialog); return FALSE;
    }
    return FALSE;
}

void ShowMemorySearch(MemoryViewerContext& viewer) {
    SearchWindow window;
    window.viewer = &viewer;
    UIL_LangModule.ShowDialogParam(IDD_MEMORY_SEARCH, viewer.dialog, MemorySearchProc,
                                   reinterpret_cast<LPARAM>(&window));
}

}  // namespace lmvx
