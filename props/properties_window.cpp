#include "props/properties_window.h"

#include <commctrl.h>
#include <tlhelp32.h>

#include <objbase.h>

#include <memory>
#include <string>

#include "app/shared_icons.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "props/page_selection.h"
#include "props/page_services.h"
#include "props/page_tree.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr UINT_PTR kExitWatchTimer = 4000;
constexpr unsigned kFastestInterval = 100;

// One open window: the record the pages share, the page table and what the frame owns for its life.
struct PropertiesWindow {
    ProcessPropertiesContext context;
    PropertyPageTable pages;
    UniqueImageList treeImages;  // the tree does not destroy its image list
};

PropertiesWindow* WindowOf(HWND frame) {
    return reinterpret_cast<PropertiesWindow*>(GetWindowLongPtrW(frame, GWLP_USERDATA));
}

void SetCaption(HWND frame, const ProcessPropertiesContext& context, std::wstring& displayName) {
    const int item = context.processList ? context.processList->GetItemByPID(context.pid) : -1;
    if (item >= 0) displayName = context.processList->GetItemDisplayName(item);
    wchar_t caption[1024];
    const unsigned shownPid = item >= 0 ? context.processList->GetItemPID(item) : context.pid;
    APIP_FormatString(caption, sizeof(caption), UIL_LangModule.GetLangString(IDS_PROPERTIES_CAPTION),
                      displayName.c_str(), static_cast<int>(shownPid));
    SetWindowTextW(frame, caption);
}

// The Explorer look where the theme library offers it; looked up at run time, the classic look otherwise.
void ApplyExplorerTheme(HWND tree) {
    HMODULE theme = GetModuleHandleW(L"uxtheme.dll");
    if (!theme) theme = LoadLibraryW(L"uxtheme.dll");
    if (!theme) return;
    using SetWindowThemeFn = HRESULT(WINAPI*)(HWND, LPCWSTR, LPCWSTR);
    auto setTheme = reinterpret_cast<SetWindowThemeFn>(GetProcAddress(theme, "SetWindowTheme"));
    if (setTheme) setTheme(tree, L"Explorer", nullptr);
}

HWND CreatePage(HWND frame, const PropertyPage& page, ProcessPropertiesContext& context) {
    HWND window = UIL_LangModule.LoadDialogParam(page.dialogId, frame, page.procedure,
                                                  reinterpret_cast<LPARAM>(&context));
    context.*page.window = window;
    if (!window) return nullptr;
    RECT area;
    GetWindowRect(GetDlgItem(frame, IDC_PROPERTIES_PAGE_AREA), &area);
    MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&area), 2);
    SetWindowPos(window, HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOACTIVATE);
    return window;
}

ProcessAccess ProbeAccess(unsigned pid) {
    ProcessAccess access;
    UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, pid));
    access.query = process.IsValid();
    if (process) {
        UniqueHandle token;
        access.token = OpenProcessToken(process.Get(), TOKEN_QUERY, token.Put()) != FALSE;
    }
    UniqueFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, pid));
    access.moduleSnapshot = snapshot.IsValid();
    return access;
}

INT_PTR OnInitDialog(HWND frame, PropertiesWindow* window) {
    wren::VerifyCritialAlloc(window);
    ProcessPropertiesContext& context = window->context;
    wren::CenterWindow(frame, context.parentWindow);
    SetWindowLongPtrW(frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window));
    context.frame = frame;
    // The Handles and Files pages share one handle list; it is ready before any page exists.
    context.handleList.Init();
    if (context.mainWindow) SendMessageW(context.mainWindow, WM_USER, reinterpret_cast<WPARAM>(frame), 0);
    SetWindowPos(frame, context.topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);

    std::wstring displayName;
    SetCaption(frame, context, displayName);
    HWND tree = GetDlgItem(frame, IDC_PROPERTIES_TREE);
    ApplyExplorerTheme(tree);
    const int item = context.processList ? context.processList->GetItemByPID(context.pid) : -1;
    window->treeImages = CreatePageImageList(item >= 0 ? context.processList->GetItemIconSmall(item) : nullptr);
    TreeView_SetImageList(tree, window->treeImages.Get(), TVSIL_NORMAL);

    // The first page is up and painted before the slower ones are built.
    HWND firstPage = nullptr;
    if (!window->pages.empty() && window->pages[0].procedure) firstPage = CreatePage(frame, window->pages[0], context);
    ShowWindow(frame, SW_SHOW);
    UpdateWindow(frame);
    if (firstPage) {
        ShowWindow(firstPage, SW_SHOW);
        UpdateWindow(firstPage);
    }
    // The frame is modal only to have a message loop on its thread: its owner stays usable (intended).
    EnableWindow(context.parentWindow, TRUE);

    const ProcessAccess access = ProbeAccess(context.pid);
    for (size_t i = 1; i < window->pages.size(); ++i) {
        if (window->pages[i].procedure) CreatePage(frame, window->pages[i], context);
    }
    InsertPageItems(tree, displayName.c_str(), window->pages, context, TreeOrder(window->pages, access));
    WalkPageTree(tree, [tree](HTREEITEM item) { TreeView_Expand(tree, item, TVE_EXPAND); });

    const unsigned interval = context.refreshInterval ? context.refreshInterval : kFastestInterval;
    SetTimer(frame, kExitWatchTimer, interval, nullptr);
    return FALSE;  // the first page keeps the focus it took
}

// Shows the selected page and hides every other; the root item holds no page and changes nothing.
void OnPageSelected(HWND frame) {
    HWND tree = GetDlgItem(frame, IDC_PROPERTIES_TREE);
    HWND selected = PageOfItem(tree, TreeView_GetSelection(tree));
    if (!selected) return;
    ShowWindow(selected, SW_SHOW);
    WalkPageTree(tree, [tree, selected](HTREEITEM item) {
        HWND page = PageOfItem(tree, item);
        if (page && page != selected) ShowWindow(page, SW_HIDE);
    });
}

// Once the exit code can be read and the process is no longer active, the notice appears for good.
void CheckProcessExited(HWND frame, const ProcessPropertiesContext& context) {
    const DWORD access = wren::IsOSVistaOrHigher() ? PROCESS_QUERY_LIMITED_INFORMATION : PROCESS_QUERY_INFORMATION;
    UniqueHandle process(OpenProcess(access, FALSE, context.pid));
    if (!process) return;
    DWORD exitCode = 0;
    if (!GetExitCodeProcess(process.Get(), &exitCode) || exitCode == STILL_ACTIVE) return;
    const std::wstring notice = FormatExitNotice(
        wren::HardcodeLangString(L"The process has exited with code %d (0x%X).",
                                 L"Der Prozess wurde mit Code %d (0x%X) beendet."),
        exitCode);
    SetDlgItemTextW(frame, IDC_PROPERTIES_EXIT_TEXT, notice.c_str());
    SendDlgItemMessageW(frame, IDC_PROPERTIES_EXIT_ICON, STM_SETICON,
                        reinterpret_cast<WPARAM>(SharedIconById(IDI_EVENT).small), 0);
    ShowWindow(GetDlgItem(frame, IDC_PROPERTIES_EXIT_ICON), SW_SHOW);
    ShowWindow(GetDlgItem(frame, IDC_PROPERTIES_EXIT_TEXT), SW_SHOW);
    KillTimer(frame, kExitWatchTimer);
}

void OnDestroy(HWND frame) {
    KillTimer(frame, kExitWatchTimer);
    PropertiesWindow* window = WindowOf(frame);
    if (window && window->context.mainWindow) {
        SendMessageW(window->context.mainWindow, WM_USER + 1, reinterpret_cast<WPARAM>(frame), 0);
    }
}

INT_PTR CALLBACK FrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        return OnInitDialog(frame, reinterpret_cast<PropertiesWindow*>(lParam));
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->idFrom == IDC_PROPERTIES_TREE && header->code == TVN_SELCHANGEDW) OnPageSelected(frame);
        return FALSE;
    }
    case WM_TIMER:
        if (wParam == kExitWatchTimer) {
            if (PropertiesWindow* window = WindowOf(frame)) CheckProcessExited(frame, window->context);
        }
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDCANCEL) EndDialog(frame, IDCANCEL);
        return TRUE;  // every other command is ignored
    case WM_DESTROY:
        OnDestroy(frame);
        return FALSE;
    }
    return FALSE;
}

DWORD WINAPI PropertiesWindowThread(void* parameter) {
    std::unique_ptr<PropertiesWindow> window(static_cast<PropertiesWindow*>(parameter));
    // The multithreaded apartment although the thread owns windows: what the pages have always run in.
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    wren::DialogBoxParamW(window->context.instance, MAKEINTRESOURCEW(IDD_PROPERTIES_FRAME),
                          window->context.parentWindow, FrameProc, reinterpret_cast<LPARAM>(window.get()));
    CoUninitialize();
    return 1;
}

}  // namespace

int ShowProcessProperties(unsigned pid, HWND parent, HWND mainWindow, kestrel::TL_PROCESSLIST* processList,
                          PropertyPageTable pages, unsigned refreshInterval) {
    auto window = std::make_unique<PropertiesWindow>();
    ProcessPropertiesContext& context = window->context;
    context.mainWindow = mainWindow;
    context.parentWindow = parent;
    context.instance = wren::GetStoredInstance();
    context.pid = pid;
    context.topmost = mainWindow && (GetWindowLongPtrW(mainWindow, GWL_EXSTYLE) & WS_EX_TOPMOST) ? TRUE : FALSE;
    context.processList = processList;
    context.refreshInterval = refreshInterval;
    context.openInShell = CurrentPageServices().openInShell;
    window->pages = pages;
    HANDLE thread = CreateThread(nullptr, 0, PropertiesWindowThread, window.get(), 0, nullptr);
    if (!thread) return 0;
    window.release();  // the thread owns it now
    CloseHandle(thread);
    return 1;
}

}  // namespace lmvx
