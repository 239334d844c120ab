#include "test_environment.h"

#include <commctrl.h>

#include "dialog_ids.h"
#include "finch.h"
#include "wren.h"

namespace proclist_test {
namespace {

constexpr wchar_t kWindowClass[] = L"LumivexProclistTestWindow";

LRESULT CALLBACK TestWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* handlers = reinterpret_cast<WindowHandlers*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (handlers && message == WM_USER) {
        handlers->OnUser(wParam);
        return 0;
    }
    if (handlers && message == WM_TIMER) {
        handlers->OnTimer(wParam);
        return 0;
    }
    if (message == WM_SIZE) {
        MoveWindow(GetDlgItem(window, IDC_PROCESS_LIST), 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterTestWindowClass() {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = TestWindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExW(&windowClass);  // fails harmlessly when already registered
}

}  // namespace

ScopedTestApplication::ScopedTestApplication(const wchar_t* name)
    : applicationKey_(std::wstring(L"Software\\Orvane Software\\") + name) {
    RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());  // leftovers of an aborted run
    wren::SetAppInfo(L"Lumivex Process List Test", name, L"1.0", 1000, L"test");
    wren::PostInit();
    UIL_LangModule.Init(GetModuleHandleW(nullptr), name, L"test", UIL_LANGMODULE::English);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
}

ScopedTestApplication::~ScopedTestApplication() {
    RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());
}

TestMainWindow::TestMainWindow(bool visible) {
    RegisterTestWindowClass();
    window_ = CreateWindowExW(0, kWindowClass, L"Lumivex", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1000, 600,
                              nullptr, UIL_LangModule.LoadLangMenu(IDR_MAIN_MENU), GetModuleHandleW(nullptr), nullptr);
    list_ = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                            WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, 0, 0, 1000, 560, window_,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_PROCESS_LIST)), GetModuleHandleW(nullptr),
                            nullptr);
    if (visible) {
        ShowWindow(window_, SW_SHOW);
        UpdateWindow(window_);
    }
}

TestMainWindow::~TestMainWindow() {
    Destroy();
}

void TestMainWindow::SetHandlers(WindowHandlers* handlers) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(handlers));
}

void TestMainWindow::Destroy() {
    if (window_ && IsWindow(window_)) DestroyWindow(window_);  // destroys the menu and the list with it
    window_ = nullptr;
    list_ = nullptr;
}

int RowOfPid(HWND list, unsigned pid) {
    LVFINDINFOW find = {};
    find.flags = LVFI_PARAM;
    find.lParam = static_cast<LPARAM>(pid);
    return ListView_FindItem(list, -1, &find);
}

unsigned PidOfRow(HWND list, int row) {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    return ListView_GetItem(list, &item) ? static_cast<unsigned>(item.lParam) : 0;
}

std::vector<unsigned> PidsInRowOrder(HWND list) {
    std::vector<unsigned> pids;
    const int count = ListView_GetItemCount(list);
    for (int row = 0; row < count; ++row) pids.push_back(PidOfRow(list, row));
    return pids;
}

std::wstring CellText(HWND list, int row, int column) {
    wchar_t text[1024] = {};
    ListView_GetItemText(list, row, column, text, static_cast<int>(std::size(text)));
    return text;
}

int RowIndent(HWND list, int row) {
    LVITEMW item = {};
    item.mask = LVIF_INDENT;
    item.iItem = row;
    return ListView_GetItem(list, &item) ? item.iIndent : -1;
}

int RowImage(HWND list, int row) {
    LVITEMW item = {};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    return ListView_GetItem(list, &item) ? item.iImage : -1;
}

std::vector<UINT> CheckedCommands(HMENU popup) {
    std::vector<UINT> checked;
    const int count = GetMenuItemCount(popup);
    for (int i = 0; i < count; ++i) {
        if (GetMenuState(popup, i, MF_BYPOSITION) & MF_CHECKED) checked.push_back(GetMenuItemID(popup, i));
    }
    return checked;
}

HMENU SortMenuOf(HWND window) {
    return GetSubMenu(GetSubMenu(GetMenu(window), 1), 0);
}

HMENU RateMenuOf(HWND window) {
    return GetSubMenu(GetSubMenu(GetMenu(window), 1), 1);
}

}  // namespace proclist_test
