// Shows the memory viewer, the Virtual Memory page and the Strings page with real contents for a few
// seconds, for screenshots:  lmvx_memory_shots <en|de> <seconds>
// The process shown is the test child holding known strings (its "memory" verb).
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cwchar>
#include <string>

#include "child_process.h"
#include "finch.h"
#include "memory/memory_viewer.h"
#include "memory/memory_viewer_context.h"
#include "memory/strings_page.h"
#include "memory/virtual_memory_page.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace {

HWND Host(const wchar_t* title, int x, int y) {
    HWND host = CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, y, 500, 400, nullptr,
                                nullptr, nullptr, nullptr);
    SetWindowLongPtrW(host, GWL_STYLE, GetWindowLongPtrW(host, GWL_STYLE) | WS_CLIPCHILDREN);
    return host;
}

void Pump(DWORD milliseconds) {
    const DWORD end = GetTickCount() + milliseconds;
    while (static_cast<int>(end - GetTickCount()) > 0) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const bool german = argc > 1 && std::wcscmp(argv[1], L"de") == 0;
    const DWORD seconds = argc > 2 ? std::wcstoul(argv[2], nullptr, 10) : 10;
    const LANGID language = german ? UIL_LANGMODULE::German : UIL_LANGMODULE::English;
    wren::SetAppInfo(L"Lumivex", L"LumivexShots", L"1.0", 1000, L"shots");
    wren::SetCurrentLangID(language);
    UIL_LangModule.Init(GetModuleHandleW(nullptr), L"LumivexShots", L"shots", language);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);

    wchar_t note[MAX_PATH];
    GetTempPathW(MAX_PATH, note);
    std::wcscat(note, L"lmvx_memory_shots.txt");
    DeleteFileW(note);
    lmvx_test::ChildProcess child(std::wstring(L"memory \"") + note + L"\"");
    unsigned long long reserved = 0, committed = 0;
    for (int i = 0; i < 200 && committed == 0; ++i, Sleep(50)) {
        if (FILE* file = _wfopen(note, L"rb")) {
            if (std::fscanf(file, "%llX %llX", &reserved, &committed) != 2) committed = 0;
            std::fclose(file);
        }
    }
    wchar_t address[32];
    std::swprintf(address, 32, L"%llX", committed + 0xF0);

    lmvx::MemoryViewerContext viewer;
    viewer.processId = child.Pid();
    HWND viewerDialog = UIL_LangModule.LoadDialogParam(IDD_MEMORY_VIEWER, nullptr, lmvx::MemoryViewerProc,
                                                       reinterpret_cast<LPARAM>(&viewer));
    SetDlgItemTextW(viewerDialog, IDC_MEM_ADDRESS, address);
    SendMessageW(viewerDialog, WM_COMMAND, IDOK, 0);
    SetWindowPos(viewerDialog, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);

    kestrel::TL_PROCESSLIST processList;
    processList.Init();
    for (int i = 0; i < 100 && processList.GetItemByPID(child.Pid()) < 0; ++i, Sleep(50)) processList.Update();
    lmvx::ProcessPropertiesContext context;
    context.pid = child.Pid();
    context.processList = &processList;
    context.refreshInterval = 1000;
    HWND vmHost = Host(L"Virtual Memory", 560, 0);
    HWND vm = UIL_LangModule.LoadDialogParam(IDD_PAGE_VIRTUAL_MEMORY, vmHost, lmvx::VirtualMemoryPageProc,
                                             reinterpret_cast<LPARAM>(&context));
    SetDlgItemTextW(vm, IDC_MEM_ADDRESS, address);
    ShowWindow(vm, SW_SHOW);
    HWND stringsHost = Host(L"Strings", 560, 400);
    HWND strings = UIL_LangModule.LoadDialogParam(IDD_PAGE_STRINGS, stringsHost, lmvx::StringsPageProc,
                                                  reinterpret_cast<LPARAM>(&context));
    ShowWindow(strings, SW_SHOW);
    Pump(seconds * 1000);
    DestroyWindow(viewerDialog);
    DestroyWindow(vmHost);
    DestroyWindow(stringsHost);
    processList.Delete();
    DeleteFileW(note);
    return 0;
}
