// Shows the Threads page, the Modules page or the call stack dialog on a child with known threads, in one
// language, for a few seconds, so that they can be looked at in screenshots:
//   props_page_viewer <threads|threads-module|threads-windows|modules|callstack> <en|de> [seconds]
#include <windows.h>
#include <commctrl.h>

#include <cwchar>
#include <string>

#include "known_threads.h"
#include "message_pump.h"
#include "props/call_stack_dialog.h"
#include "props/modules_page.h"
#include "props/threads_page.h"
#include "props_window_environment.h"
#include "resource.h"

namespace {

// The blocked thread's row chosen, so that the panes show it.
void ChooseBlockedThread(HWND page, DWORD threadId) {
    HWND list = GetDlgItem(page, IDC_THREADS_LIST);
    const std::wstring id = std::to_wstring(threadId);
    int row = -1;
    lmvx_test::PumpUntil([&] { return (row = props_test::FindRowWithText(list, 0, id)) >= 0; }, 10000);
    if (row >= 0) props_test::SelectRow(list, row);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) return 2;
    const std::wstring what = argv[1];
    const bool german = std::wstring(argv[2]) == L"de";
    const DWORD showMs = (argc > 3 ? std::wcstoul(argv[3], nullptr, 10) : 5) * 1000;
    props_test::SetUpApplication(german ? MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN)
                                        : MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
    lmvx_test::KnownThreads child = lmvx_test::KnownThreads::Start();
    if (!child.Started()) return 3;
    const bool modules = what == L"modules";
    props_test::HostedPage host(modules ? IDD_PAGE_MODULES : IDD_PAGE_THREADS,
                                modules ? lmvx::ModulesPageProc : lmvx::ThreadsPageProc, child.child->Pid());
    RECT page{};
    GetWindowRect(host.Page(), &page);
    SetWindowPos(host.Host(), nullptr, 0, 0, page.right - page.left + 16, page.bottom - page.top + 40,
                 SWP_NOMOVE | SWP_NOZORDER);
    if (!modules) ChooseBlockedThread(host.Page(), what == L"threads-windows" ? child.windowed : child.blocked);
    if (what == L"threads-module") SendMessageW(host.Page(), WM_COMMAND, IDC_THREADS_SHOW_MODULE, 0);
    if (what == L"threads-windows") SendMessageW(host.Page(), WM_COMMAND, IDC_THREADS_SHOW_WINDOWS, 0);
    if (what == L"callstack") {
        SetTimer(host.Host(), 1, showMs, [](HWND, UINT, UINT_PTR, DWORD) {
            HWND dialog = GetWindow(GetDesktopWindow(), GW_CHILD);
            for (; dialog; dialog = GetWindow(dialog, GW_HWNDNEXT)) {
                DWORD pid = 0;
                GetWindowThreadProcessId(dialog, &pid);
                if (pid == GetCurrentProcessId() && GetDlgItem(dialog, IDC_CALL_STACK_LIST)) {
                    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                }
            }
        });
        lmvx::CallStackRequest request;
        lmvx::ShowCallStack(&request, child.blocked, host.Page());
        return 0;
    }
    const DWORD start = GetTickCount();
    lmvx_test::PumpUntil([&] { return GetTickCount() - start > showMs; }, showMs + 1000);
    return 0;
}
