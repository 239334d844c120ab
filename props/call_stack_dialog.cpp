#include "props/call_stack_dialog.h"

#include <commctrl.h>
#include <shlwapi.h>
#include <tlhelp32.h>

#include <string>

#include "app/shared_icons.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "props/page_helpers.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

namespace {

constexpr COLORREF kSystemFrameColour = 0x404040;

CallStackRequest* RequestOf(HWND dialog) {
    return reinterpret_cast<CallStackRequest*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
}

// The process that owns the thread; 0 when the thread is not running.
DWORD OwnerOfThread(DWORD threadId) {
    UniqueFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    if (!snapshot) return 0;
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(snapshot.Get(), &entry); more; more = Thread32Next(snapshot.Get(), &entry)) {
        if (entry.th32ThreadID == threadId) return entry.th32OwnerProcessID;
    }
    return 0;
}

void SetUpFrameList(HWND list) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
    UIP_ListViewAddColumn(list, 0, Text(IDS_COLUMN_CALL), 360, 0);
    ListView_SetColumnWidth(list, 0, LVSCW_AUTOSIZE_USEHEADER);
    ListView_SetColumnWidth(list, 0, ListView_GetColumnWidth(list, 0) - 20);
    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 2, 1);
    if (images) {
        ImageList_AddIcon(images, SharedIconById(IDI_MODULE).small);
        ImageList_AddIcon(images, SharedIconById(IDI_PROCESS).small);
    }
    ListView_SetImageList(list, images, LVSIL_SMALL);   // destroyed with the list
}

// Frames n - 1 down to 1, each at the top, so the list reads from frame 1 down. Frame 0 is never listed
// (intended: a stack of one frame gives an empty list).
void FillFrames(HWND list, const kestrel::_SI_STACKDUMP& stack) {
    for (unsigned index = stack.frameCount; index-- > 1;) {
        const kestrel::_SI_STACKFRAME frame = stack.GetFrame(index);
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
        item.iItem = 0;
        item.pszText = const_cast<wchar_t*>(frame.callText);
        item.iImage = PathMatchSpecW(frame.modulePath, L"*.exe") ? 1 : 0;
        item.lParam = static_cast<LPARAM>(index);
        ListView_InsertItem(list, &item);
    }
}

// Takes the stack; on failure tells why and ends the dialog.
void TakeStack(HWND dialog, CallStackRequest& request) {
    const DWORD pid = OwnerOfThread(request.threadId);
    if (pid == 0) {
        UIP_ShowWarning(dialog, Text(IDS_THREAD_NOT_FOUND), Text(IDS_ERR_FIND_THREAD), Text(IDS_CALL_STACK));
        EndDialog(dialog, IDCANCEL);
        return;
    }
    UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, pid));
    UniqueHandle thread(
        OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT | THREAD_QUERY_INFORMATION, FALSE, request.threadId));
    if (!process || !thread) {
        UIP_ShowWarning(dialog, Text(IDS_CALL_STACK_FAILED), Text(IDS_ERR_THREAD_ACCESS_DENIED), Text(IDS_CALL_STACK));
        EndDialog(dialog, IDCANCEL);
        return;
    }
    if (!request.stackDump.CreateStackDump(process.Get(), thread.Get(), nullptr)) {
        UIP_ShowWarning(dialog, Text(IDS_CALL_STACK_FAILED), Text(IDS_ERR_CREATE_CALL_STACK), Text(IDS_CALL_STACK));
        EndDialog(dialog, IDCANCEL);
        return;
    }
    FillFrames(GetDlgItem(dialog, IDC_CALL_STACK_LIST), request.stackDump);
}

BOOL OnInitDialog(HWND dialog, CallStackRequest* request) {
    wren::Embold(dialog, IDC_CALL_STACK_TITLE);
    wren::CenterWindow(dialog, request->owner);
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(request));
    wchar_t title[256];
    APIP_FormatString(title, sizeof title, Text(IDS_CALL_STACK_CAPTION), request->threadId);
    SetWindowTextW(dialog, title);
    request->dialog = dialog;
    SetUpFrameList(GetDlgItem(dialog, IDC_CALL_STACK_LIST));
    // Visible while the stack is taken.
    ShowWindow(dialog, SW_SHOW);
    UpdateWindow(dialog);
    TakeStack(dialog, *request);
    return TRUE;
}

bool InSystemFolder(const wchar_t* modulePath) {
    wchar_t windows[512];
    const UINT length = GetWindowsDirectoryW(windows, 512);
    if (length == 0 || length >= 512) return false;
    const std::wstring pattern = std::wstring(windows) + L"\\*";
    return PathMatchSpecW(modulePath, pattern.c_str()) != FALSE;
}

LRESULT OnCustomDraw(const CallStackRequest& request, NMLVCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
        const kestrel::_SI_STACKFRAME frame = request.stackDump.GetFrame(static_cast<unsigned>(draw.nmcd.lItemlParam));
        if (InSystemFolder(frame.modulePath)) {
            draw.clrText = kSystemFrameColour;
            return CDRF_NEWFONT;
        }
    }
    return CDRF_DODEFAULT;
}

void ShowEnd(HWND dialog, int id, const wchar_t* text) {
    HWND edit = GetDlgItem(dialog, id);
    SetWindowTextW(edit, text);
    SendMessageW(edit, WM_KEYDOWN, VK_END, 0);   // the end of a long path or name in view
}

void ShowFrameDetails(HWND dialog, const CallStackRequest& request) {
    HWND list = GetDlgItem(dialog, IDC_CALL_STACK_LIST);
    const int mark = ListView_GetSelectionMark(list);
    if (mark < 0) return;
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = mark;
    if (!ListView_GetItem(list, &item)) return;
    const std::wstring index = std::to_wstring(item.lParam);
    HWND shown = GetDlgItem(dialog, IDC_CALL_STACK_SHOWN_FRAME);
    wchar_t current[32] = {};
    GetWindowTextW(shown, current, 32);
    if (index == current) return;
    const kestrel::_SI_STACKFRAME frame = request.stackDump.GetFrame(static_cast<unsigned>(item.lParam));
    wchar_t address[32] = {};
    wchar_t returnAddress[32] = {};
    if (frame.functionAddress != 0) {
        APIP_FormatString(address, sizeof address, L"0x%.8X", frame.functionAddress);
        APIP_FormatString(returnAddress, sizeof returnAddress, L"0x%.8X", frame.returnAddress);
    }
    SetDlgItemTextW(dialog, IDC_CALL_STACK_ADDRESS, address);
    SetDlgItemTextW(dialog, IDC_CALL_STACK_RETURN_ADDRESS, returnAddress);
    ShowEnd(dialog, IDC_CALL_STACK_FUNCTION, frame.functionValid ? frame.functionText : frame.callText);
    ShowEnd(dialog, IDC_CALL_STACK_MODULE, frame.modulePath);
    ShowEnd(dialog, IDC_CALL_STACK_SOURCE, frame.sourceText);
    SetWindowTextW(shown, index.c_str());
}

INT_PTR OnNotify(HWND dialog, NMHDR* header) {
    const CallStackRequest* request = RequestOf(dialog);
    if (!request || header->idFrom != IDC_CALL_STACK_LIST) return FALSE;
    if (header->code == NM_CUSTOMDRAW) {
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT, OnCustomDraw(*request, *reinterpret_cast<NMLVCUSTOMDRAW*>(header)));
        return TRUE;
    }
    ShowFrameDetails(dialog, *request);
    return FALSE;
}

INT_PTR CALLBACK CallStackProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, reinterpret_cast<CallStackRequest*>(lParam));
    case WM_NOTIFY: return OnNotify(dialog, reinterpret_cast<NMHDR*>(lParam));
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    default: return FALSE;
    }
}

DWORD WINAPI CallStackThread(void* parameter) {
    auto* request = static_cast<CallStackRequest*>(parameter);
    UIL_LangModule.ShowDialogParam(IDD_CALL_STACK, request->owner, CallStackProc, reinterpret_cast<LPARAM>(request));
    return 0;
}

}  // namespace

int ShowCallStack(CallStackRequest* request, unsigned threadId, HWND owner) {
    request->owner = owner;
    request->threadId = threadId;
    UniqueHandle thread(CreateThread(nullptr, 0, CallStackThread, request, 0, nullptr));
    if (!thread) return 0;
    HANDLE waitOn = thread.Get();
    // The opener's windows stay alive: its timers and repaints go on while the dialog is open.
    while (MsgWaitForMultipleObjects(1, &waitOn, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return 1;
}

}  // namespace lmvx
