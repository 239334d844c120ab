#include "test_host.h"

#include <commctrl.h>

#include <iterator>

#include "dialog_ids.h"
#include "finch.h"
#include "wren.h"

namespace lmvx_test {
namespace {

constexpr wchar_t kWindowClass[] = L"LumivexTestMainWindow";

LRESULT CALLBACK TestWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* handlers = reinterpret_cast<WindowHandlers*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (handlers && (message == WM_USER || message == WM_TIMER)) {
        message == WM_USER ? handlers->OnUser(wParam) : handlers->OnTimer(wParam);
        return 0;
    }
    if (message == WM_SIZE) {
        MoveWindow(GetDlgItem(window, IDC_PROCESS_LIST), 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// The row's item with the fields under mask; false when there is no such row.
bool ReadRow(HWND list, int row, UINT mask, LVITEMW& item) {
    item.mask = mask;
    item.iItem = row;
    return ListView_GetItem(list, &item);
}

}  // namespace

ScopedTestApplication::ScopedTestApplication(const wchar_t* name, LANGID language) : registration_(name) {
    wren::SetCurrentLangID(language);
    UIL_LangModule.Init(GetModuleHandleW(nullptr), name, L"test", language);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
}

TestMainWindow::TestMainWindow(bool visible) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = TestWindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExW(&windowClass);   // fails harmlessly when already registered
    window_ = CreateWindowExW(0, kWindowClass, L"Lumivex", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1000, 600,
                              nullptr, UIL_LangModule.LoadLangMenu(IDR_MAIN_MENU), GetModuleHandleW(nullptr), nullptr);
    list_ = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS,
                            0, 0, 1000, 560, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_PROCESS_LIST)),
                            GetModuleHandleW(nullptr), nullptr);
    if (visible) {
        ShowWindow(window_, SW_SHOW);
        UpdateWindow(window_);
    }
}

TestMainWindow::~TestMainWindow() { Destroy(); }

void TestMainWindow::SetHandlers(WindowHandlers* handlers) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(handlers));
}

void TestMainWindow::Destroy() {
    if (window_ && IsWindow(window_)) DestroyWindow(window_);   // destroys the menu and the list with it
    window_ = nullptr;
    list_ = nullptr;
}

void TestMainWindow::AddRow(unsigned pid, const wchar_t* text) {
    if (ListView_GetItemCount(list_) == 0 && !Header_GetItemCount(ListView_GetHeader(list_))) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = 200;
        column.pszText = const_cast<wchar_t*>(L"Process");
        ListView_InsertColumn(list_, 0, &column);
    }
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = ListView_GetItemCount(list_);
    item.pszText = const_cast<wchar_t*>(text);
    item.lParam = static_cast<LPARAM>(pid);
    ListView_InsertItem(list_, &item);
}

void TestMainWindow::SelectRow(unsigned pid) {
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemState(list_, RowOfPid(list_, pid), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

int RowOfPid(HWND list, unsigned pid) {
    LVFINDINFOW find{};
    find.flags = LVFI_PARAM;
    find.lParam = static_cast<LPARAM>(pid);
    return ListView_FindItem(list, -1, &find);
}

unsigned PidOfRow(HWND list, int row) {
    LVITEMW item{};
    return ReadRow(list, row, LVIF_PARAM, item) ? static_cast<unsigned>(item.lParam) : 0;
}

std::vector<unsigned> PidsInRowOrder(HWND list) {
    std::vector<unsigned> pids;
    for (int row = 0; row < ListView_GetItemCount(list); ++row) pids.push_back(PidOfRow(list, row));
    return pids;
}

std::wstring CellText(HWND list, int row, int column) {
    wchar_t text[1024] = {};
    ListView_GetItemText(list, row, column, text, static_cast<int>(std::size(text)));
    return text;
}

int RowIndent(HWND list, int row) {
    LVITEMW item{};
    return ReadRow(list, row, LVIF_INDENT, item) ? item.iIndent : -1;
}

int RowImage(HWND list, int row) {
    LVITEMW item{};
    return ReadRow(list, row, LVIF_IMAGE, item) ? item.iImage : -1;
}

std::vector<SeenItem> ReadMenu(HMENU menu) {
    std::vector<SeenItem> items;
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        wchar_t text[256] = {};
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
        info.dwTypeData = text;
        info.cch = static_cast<UINT>(std::size(text));
        if (!GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info)) continue;
        SeenItem item;
        item.separator = (info.fType & MFT_SEPARATOR) != 0;
        item.id = info.hSubMenu ? 0 : info.wID;
        item.text = item.separator ? L"" : text;
        item.grayed = (info.fState & MFS_GRAYED) != 0;
        item.checked = (info.fState & MFS_CHECKED) != 0;
        item.isDefault = (info.fState & MFS_DEFAULT) != 0;
        if (info.hSubMenu) item.submenu = ReadMenu(info.hSubMenu);
        items.push_back(std::move(item));
    }
    return items;
}

std::vector<UINT> CheckedCommands(HMENU popup) {
    std::vector<UINT> checked;
    for (const SeenItem& item : ReadMenu(popup)) {
        if (item.checked) checked.push_back(item.id);
    }
    return checked;
}

HMENU SortMenuOf(HWND window) { return GetSubMenu(GetSubMenu(GetMenu(window), 1), 0); }

HMENU RateMenuOf(HWND window) { return GetSubMenu(GetSubMenu(GetMenu(window), 1), 1); }

HWND FindOwnWindow(const std::wstring& caption, HWND except) {
    struct Search {
        const std::wstring& caption;
        HWND except;
        HWND found;
    } search{caption, except, nullptr};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& s = *reinterpret_cast<Search*>(parameter);
            DWORD pid = 0;
            GetWindowThreadProcessId(window, &pid);
            wchar_t text[256] = {};
            GetWindowTextW(window, text, 256);
            if (pid != GetCurrentProcessId() || window == s.except || !IsWindowVisible(window) || s.caption != text)
                return TRUE;
            s.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring ChildTexts(HWND window) {
    std::wstring texts;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t text[1024] = {};
        GetWindowTextW(child, text, 1024);
        texts += text;
        texts += L"\n";
    }
    return texts;
}

bool WaitForOwnWindow(const std::wstring& caption, DWORD limitMs, const std::function<void(HWND)>& act, HWND except) {
    // Polls without pumping: the window belongs to another thread of this process.
    HWND window = nullptr;
    if (!PollUntil([&] { return (window = FindOwnWindow(caption, except)) != nullptr; }, limitMs)) return false;
    act(window);
    return true;
}

}  // namespace lmvx_test
