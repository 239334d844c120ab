// The opener's side of a dialog that runs on a thread of its own: wait for the thread while dispatching
// every message that arrives, so that the opener's windows keep painting and updating.
#pragma once
#include <windows.h>

namespace lmvx {

inline void WaitForThreadDispatching(HANDLE thread) {
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

}  // namespace lmvx
