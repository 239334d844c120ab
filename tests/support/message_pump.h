// Waiting for a condition: dispatching the calling thread's messages while its windows work, or polling.
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

// Polls the condition (no message pump) for up to limitMs; true once it holds.
template <typename Condition>
bool PollUntil(Condition condition, DWORD limitMs = 20000) {
    for (const ULONGLONG end = GetTickCount64() + limitMs; !condition(); Sleep(5)) {
        if (GetTickCount64() > end) return false;
    }
    return true;
}

}  // namespace lmvx_test
