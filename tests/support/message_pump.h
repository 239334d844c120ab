// Dispatches the calling thread's messages while a test waits for something its windows do.
#pragma once
#include <windows.h>

namespace lmvx_test {

// Dispatches this thread's messages until the condition holds or limitMs pass; returns the condition.
template <typename Condition>
bool PumpUntil(Condition condition, DWORD limitMs) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > limitMs) return false;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
}

}  // namespace lmvx_test
