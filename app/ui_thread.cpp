#include "app/ui_thread.h"

#include "finch.h"
#include "mainwnd/main_window.h"
#include "resource.h"

namespace lmvx {
namespace {

DWORD WINAPI UiThreadMain(void* parameter) {
    auto* start = static_cast<MainWindowStart*>(parameter);
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_HIGHEST);
    return static_cast<DWORD>(UIL_LangModule.ShowDialogParam(IDD_MAIN, start->owner, MainWindowProc,
                                                            reinterpret_cast<LPARAM>(start)));
}

void DispatchQueuedMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

DWORD RunMainWindow(MainWindowStart& start, int showCommand) {
    start.showCommand = showCommand;
    start.mainWindow = nullptr;
    // The handle stays open on purpose: the process ends right after the thread does.
    HANDLE thread = CreateThread(nullptr, 0, UiThreadMain, &start, 0, nullptr);
    if (!thread) return 0;
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        if (WaitForSingleObject(thread, 0) != WAIT_TIMEOUT) break;
        DispatchQueuedMessages();
    }
    DWORD exitCode = 0;
    GetExitCodeThread(thread, &exitCode);
    return exitCode;
}

}  // namespace lmvx
