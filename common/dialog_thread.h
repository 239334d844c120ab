// The dialog-thread pattern: a tool's dialog runs on a thread of its own while the opener keeps
// dispatching its own messages until that thread ends.
#pragma once
#include <windows.h>

#include "common/unique_resource.h"

namespace lmvx {

// Starts thread(parameter) and dispatches the caller's messages until it ends; false when no thread started.
inline bool RunOnDialogThread(LPTHREAD_START_ROUTINE thread, void* parameter) {
    UniqueHandle running(CreateThread(nullptr, 0, thread, parameter, 0, nullptr));
    if (!running) return false;
    HANDLE waitFor = running.Get();
    while (MsgWaitForMultipleObjects(1, &waitFor, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return true;
}

}  // namespace lmvx
