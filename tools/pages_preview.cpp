// Shows one information page for this very process, in one language, for a few seconds, so that the
// layout can be looked at in screenshots:  pages_preview <dialog id> <en|de> [seconds]
#include <windows.h>
#include <commctrl.h>

#include <cwchar>

#include "app/shared_icons.h"
#include "finch.h"
#include "kestrel.h"
#include "mainwnd/details_pane_notes.h"
#include "common/owner_button.h"
#include "mainwnd/priority_names.h"
#include "props/page_services.h"
#include "props/process_info_pages.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace {

DLGPROC ProcedureOf(unsigned dialogId) {
    switch (dialogId) {
    case IDD_PAGE_GENERAL: return lmvx::GeneralPageProc;
    case IDD_PAGE_START: return lmvx::StartPageProc;
    case IDD_PAGE_PERFORMANCE: return lmvx::PerformancePageProc;
    case IDD_PAGE_MEMORY: return lmvx::MemoryPageProc;
    case IDD_PAGE_TOKEN: return lmvx::TokenPageProc;
    }
    return nullptr;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const unsigned dialogId = argc > 1 ? static_cast<unsigned>(std::wcstoul(argv[1], nullptr, 10)) : 0;
    const LANGID language = argc > 2 && std::wcscmp(argv[2], L"de") == 0 ? UIL_LANGMODULE::German : UIL_LANGMODULE::English;
    const DWORD seconds = argc > 3 ? std::wcstoul(argv[3], nullptr, 10) : 5;
    if (!ProcedureOf(dialogId)) return 2;
    wren::SetAppInfo(L"Lumivex Pages Preview", L"LumivexPagesPreview", L"1.0", 1000, L"test");
    wren::PostInit();
    UIL_LangModule.Init(GetModuleHandleW(nullptr), L"LumivexPagesPreview", L"test", language);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    lmvx::LoadSharedIcons(GetModuleHandleW(nullptr));
    lmvx::PageServices services;
    services.drawOwnerButton = lmvx::DrawOwnerButton;
    services.priorityName = lmvx::PriorityClassName;
    services.loadNote = lmvx::LoadNote;
    lmvx::SetPageServices(services);

    kestrel::TL_PROCESSLIST provider;
    provider.Init();
    for (int i = 0; i < 4; ++i) {   // a little history for the graphs
        provider.Update();
        kestrel::UpdateProcessHistories(provider);
        Sleep(500);
    }
    lmvx::ProcessPropertiesContext context;
    context.pid = GetCurrentProcessId();
    context.processList = &provider;
    HWND host = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE | WS_BORDER, 0, 0, 480, 370, nullptr,
                                nullptr, nullptr, nullptr);
    HWND page = UIL_LangModule.LoadDialogParam(dialogId, host, ProcedureOf(dialogId), reinterpret_cast<LPARAM>(&context));
    if (!page) return 3;
    RECT size{};
    GetWindowRect(page, &size);
    SetWindowPos(host, nullptr, 0, 0, size.right - size.left + 2, size.bottom - size.top + 2, SWP_NOZORDER);
    ShowWindow(page, SW_SHOW);
    SetTimer(nullptr, 0, seconds * 1000, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) && !(message.message == WM_TIMER && !message.hwnd)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    DestroyWindow(host);
    provider.Delete();
    return 0;
}
