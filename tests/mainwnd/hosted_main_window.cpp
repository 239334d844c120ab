#include "hosted_main_window.h"

#include <commctrl.h>

#include <iterator>

#include "app/lmvx.h"
#include "app/shared_icons.h"
#include "finch.h"
#include "mainwnd/main_window.h"
#include "resource.h"
#include "wren.h"

namespace mainwnd_test {
namespace {

int RowOfPid(HWND list, unsigned pid) {
    LVFINDINFOW find{};
    find.flags = LVFI_PARAM;
    find.lParam = static_cast<LPARAM>(pid);
    return ListView_FindItem(list, -1, &find);
}

// The popup menu the right click opened, caught on its way to the owner and closed again at once.
thread_local std::vector<SeenItem>* g_capturedMenu = nullptr;
thread_local bool g_menuSeen = false;

LRESULT CALLBACK CaptureMenuHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message->message == WM_INITMENUPOPUP && !g_menuSeen && g_capturedMenu) {
        g_menuSeen = true;
        *g_capturedMenu = ReadMenu(reinterpret_cast<HMENU>(message->wParam));
        EndMenu();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

ScopedHostedProgram::ScopedHostedProgram(const wchar_t* name)
    : applicationKey_(std::wstring(L"Software\\Orvane Software\\") + name) {
    RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());   // leftovers of an aborted run
    wren::SetAppInfo(L"Lumivex Main Window Test", name, L"1.0", 1000, L"test");
    wren::PostInit();
    UIL_LangModule.Init(GetModuleHandleW(nullptr), name, L"test", UIL_LANGMODULE::English);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    lmvx::LoadSharedIcons(GetModuleHandleW(nullptr));
    lmvx::g_processList.Init();
}

ScopedHostedProgram::~ScopedHostedProgram() {
    lmvx::g_processList.Delete();
    RegDeleteTreeW(HKEY_CURRENT_USER, applicationKey_.c_str());
}

HostedMainWindow::HostedMainWindow() {
    window_ = UIL_LangModule.LoadDialogParam(IDD_MAIN, nullptr, lmvx::MainWindowProc, 0);
}

HostedMainWindow::~HostedMainWindow() {
    if (window_ && IsWindow(window_)) DestroyWindow(window_);
}

HWND HostedMainWindow::List() const {
    return GetDlgItem(window_, IDC_PROCESS_LIST);
}

bool HostedMainWindow::SelectProcess(unsigned pid, DWORD limitMs) {
    HWND list = List();
    if (!PumpUntil([&] { return RowOfPid(list, pid) >= 0; }, limitMs)) return false;
    const int row = RowOfPid(list, pid);
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return true;
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

std::vector<SeenItem> RightClickMenu(HWND mainWindow, HWND list) {
    std::vector<SeenItem> seen;
    g_capturedMenu = &seen;
    g_menuSeen = false;
    HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, CaptureMenuHook, nullptr, GetCurrentThreadId());
    NMHDR click{list, IDC_PROCESS_LIST, static_cast<UINT>(NM_RCLICK)};
    SendMessageW(mainWindow, WM_NOTIFY, IDC_PROCESS_LIST, reinterpret_cast<LPARAM>(&click));
    if (hook) UnhookWindowsHookEx(hook);
    g_capturedMenu = nullptr;
    return seen;
}

}  // namespace mainwnd_test
