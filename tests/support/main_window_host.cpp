#include "main_window_host.h"

#include <commctrl.h>

#include "app/lmvx.h"
#include "app/shared_icons.h"
#include "finch.h"
#include "mainwnd/main_window.h"
#include "resource.h"

namespace lmvx_test {
namespace {

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

ScopedHostedProgram::ScopedHostedProgram(const wchar_t* name) : application_(name) {
    lmvx::LoadSharedIcons(GetModuleHandleW(nullptr));
    lmvx::g_processList.Init();
}

ScopedHostedProgram::~ScopedHostedProgram() { lmvx::g_processList.Delete(); }

HostedMainWindow::HostedMainWindow() {
    window_ = UIL_LangModule.LoadDialogParam(IDD_MAIN, nullptr, lmvx::MainWindowProc, 0);
}

HostedMainWindow::~HostedMainWindow() {
    if (window_ && IsWindow(window_)) DestroyWindow(window_);
}

HWND HostedMainWindow::List() const { return GetDlgItem(window_, IDC_PROCESS_LIST); }

bool HostedMainWindow::SelectProcess(unsigned pid, DWORD limitMs) {
    HWND list = List();
    if (!PumpUntil([&] { return RowOfPid(list, pid) >= 0; }, limitMs)) return false;
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemState(list, RowOfPid(list, pid), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return true;
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

}  // namespace lmvx_test
