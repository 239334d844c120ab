// The actions of the Threads page: suspend, resume and terminate the selected thread, the window commands
// of the Windows pane, and the two pop-up menus that offer them.
#include <windows.h>
#include <commctrl.h>

#include "common/unique_resource.h"
#include "kestrel.h"
#include "props/page_helpers.h"
#include "props/threads_page_parts.h"
#include "resource.h"

namespace lmvx {

namespace {

bool AskYesNo(HWND page, unsigned textId, unsigned captionId) {
    return MessageBoxW(page, Text(textId), Text(captionId), MB_YESNO | MB_ICONWARNING) == IDYES;
}

void Warn(HWND page, unsigned textId, unsigned captionId) {
    MessageBoxW(page, Text(textId), Text(captionId), MB_OK | MB_ICONWARNING);
}

// A thread that ended since the last refresh fails here with its message; the next refresh drops its row.
void SuspendOrResume(HWND page) {
    const unsigned threadId = ThreadAtSelectionMark(page);
    if (threadId == 0) return;
    if (kestrel::PRM_IsThreadSuspended(threadId)) {
        if (!kestrel::PRM_ResumeThread(threadId)) Warn(page, IDS_ERR_RESUME_THREAD, IDS_RESUME_THREAD);
    } else if (AskYesNo(page, IDS_SUSPEND_THREAD_WARNING, IDS_SUSPEND_THREAD)) {
        // The library refuses the calling thread, so the pane button cannot freeze this window.
        if (!kestrel::PRM_SuspendThread(threadId)) Warn(page, IDS_ERR_SUSPEND_THREAD, IDS_SUSPEND_THREAD);
    }
    SendMessageW(page, kThreadsRefreshMessage, 0, 0);
}

void Terminate(HWND page) {
    const unsigned threadId = ThreadAtSelectionMark(page);
    if (threadId == 0) return;
    if (AskYesNo(page, IDS_TERMINATE_THREAD_WARNING, IDS_TERMINATE_THREAD) && !kestrel::PRM_TerminateThread(threadId)) {
        Warn(page, IDS_ERR_TERMINATE_THREAD, IDS_TERMINATE_THREAD);
    }
    SendMessageW(page, kThreadsRefreshMessage, 0, 0);
}

bool RunWindowCommand(HWND page, unsigned id) {
    switch (id) {
    case IDM_WINDOW_BRING_TO_FRONT:
    case IDM_WINDOW_HIDE:
    case IDM_WINDOW_RESTORE:
    case IDM_WINDOW_MAXIMIZE:
    case IDM_WINDOW_MINIMIZE:
    case IDM_WINDOW_CLOSE: break;
    default: return false;
    }
    HWND window = SelectedThreadWindow(page);
    if (!window) return true;
    switch (id) {
    case IDM_WINDOW_BRING_TO_FRONT:
        ShowWindow(window, SW_SHOW);
        OpenIcon(window);
        BringWindowToTop(window);
        break;
    case IDM_WINDOW_HIDE: ShowWindow(window, SW_HIDE); break;
    case IDM_WINDOW_RESTORE:
        OpenIcon(window);
        ShowWindow(window, SW_SHOWNORMAL);
        break;
    case IDM_WINDOW_MAXIMIZE: ShowWindow(window, SW_MAXIMIZE); break;
    case IDM_WINDOW_MINIMIZE: ShowWindow(window, SW_SHOWMINIMIZED); break;
    case IDM_WINDOW_CLOSE: PostMessageW(window, WM_CLOSE, 0, 0); break;
    }
    return true;
}

UINT GreyedUnless(bool enabled) { return enabled ? MF_ENABLED : MF_GRAYED; }

}  // namespace

bool RunThreadCommand(HWND page, unsigned id) {
    switch (id) {
    case IDM_THREAD_SUSPEND_RESUME: SuspendOrResume(page); return true;
    case IDM_THREAD_TERMINATE: Terminate(page); return true;
    default: return RunWindowCommand(page, id);
    }
}

void ShowThreadMenu(HWND page, unsigned threadId) {
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return;
    const bool suspended = kestrel::PRM_IsThreadSuspended(threadId) != 0;
    AppendMenuW(menu.Get(), MF_STRING, IDM_THREAD_CALL_STACK, Text(IDS_MENU_CALL_STACK));
    AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.Get(), MF_STRING, IDM_THREAD_TERMINATE, Text(IDS_MENU_TERMINATE_THREAD));
    // Suspending the thread that runs this window would freeze it: the item is greyed for it.
    AppendMenuW(menu.Get(), MF_STRING | GreyedUnless(threadId != GetCurrentThreadId()), IDM_THREAD_SUSPEND_RESUME,
                Text(suspended ? IDS_RESUME_THREAD_BUTTON : IDS_SUSPEND_THREAD_BUTTON));
    SetMenuDefaultItem(menu.Get(), IDM_THREAD_CALL_STACK, FALSE);
    TrackMenuAndSend(page, menu.Get());
}

void ShowWindowMenu(HWND page) {
    HWND window = SelectedThreadWindow(page);
    if (!window) return;
    UniqueMenu menu(CreatePopupMenu());
    if (!menu) return;
    const bool visible = IsWindowVisible(window) != FALSE;
    const bool minimised = IsIconic(window) != FALSE;
    const bool maximised = IsZoomed(window) != FALSE;
    AppendMenuW(menu.Get(), MF_STRING, IDM_WINDOW_BRING_TO_FRONT, Text(IDS_MENU_WINDOW_BRING_TO_FRONT));
    AppendMenuW(menu.Get(), MF_STRING | GreyedUnless(visible), IDM_WINDOW_HIDE, Text(IDS_MENU_WINDOW_HIDE));
    AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.Get(), MF_STRING | GreyedUnless(minimised || maximised), IDM_WINDOW_RESTORE,
                Text(IDS_MENU_WINDOW_RESTORE));
    AppendMenuW(menu.Get(), MF_STRING | GreyedUnless(!maximised), IDM_WINDOW_MAXIMIZE, Text(IDS_MENU_WINDOW_MAXIMIZE));
    AppendMenuW(menu.Get(), MF_STRING | GreyedUnless(!minimised), IDM_WINDOW_MINIMIZE, Text(IDS_MENU_WINDOW_MINIMIZE));
    AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.Get(), MF_STRING, IDM_WINDOW_CLOSE, Text(IDS_MENU_WINDOW_CLOSE));
    SetMenuDefaultItem(menu.Get(), IDM_WINDOW_BRING_TO_FRONT, FALSE);
    TrackMenuAndSend(page, menu.Get());
}

}  // namespace lmvx
