// The dialog-thread pattern of the program's tools: a thread of their own shows the dialog, while the
// opener dispatches its own messages (its windows stay responsive) until that thread has ended.
#pragma once
#include <windows.h>

#include "common/unique_resource.h"

namespace lmvx {

// Waits for the thread while dispatching every message that arrives, so that the opener's windows keep
// painting and updating.
inline void WaitForThreadDispatching(HANDLE thread) {
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

// Runs threadProc(parameter) on a new thread and pumps this thread's messages until it ends; false when the
// thread could not be started.
inline bool RunDialogThread(LPTHREAD_START_ROUTINE threadProc, void* parameter) {
    UniqueHandle thread(CreateThread(nullptr, 0, threadProc, parameter, 0, nullptr));
    if (!thread) return false;
    WaitForThreadDispatching(thread.Get());
    return true;
}

}  // namespace lmvx
