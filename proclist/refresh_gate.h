// Lets one refresh of the process list run at a time. The list refreshes on the UI thread (commands, and
// the refresh thread's request while the main window is behind) and on the refresh thread (while it is in
// front), and its row copy must not change under either.
//
// The UI thread never waits for the gate: its holder may be the refresh thread, which talks to the list
// view through messages that only the UI thread can answer, and whose list view notifications reach the
// main window's handlers in the middle of that talk. A refresh that the UI thread cannot start at once is
// handed to the holder instead: when the holder lets go, it posts the retry message to the UI window,
// whose handler runs the refresh then.
#pragma once
#include <windows.h>

#include <atomic>

#include "unique_handles.h"

namespace proclist {

class RefreshGate {
public:
    RefreshGate();
    RefreshGate(const RefreshGate&) = delete;
    RefreshGate& operator=(const RefreshGate&) = delete;

    // The UI thread is the thread of uiWindow, which receives retryMessage after a refresh there was turned away.
    void SetUiWindow(HWND uiWindow, UINT retryMessage);
    // True when the calling thread holds the gate.
    bool IsHeldByThisThread() const { return ownerThread_ == GetCurrentThreadId(); }

    // Holds the gate for its lifetime when it could be had. Not held when this thread already holds it (a
    // refresh reached again from inside a refresh, through a message the list view sends), nor on the UI
    // thread while another thread holds it (the retry then follows). Other threads wait for it.
    class Pass {
    public:
        explicit Pass(RefreshGate& gate);
        ~Pass();
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;
        bool Held() const { return held_; }

    private:
        RefreshGate& gate_;
        bool held_ = false;
    };

private:
    bool TryEnter();
    void Enter();
    void Leave();
    bool OnUiThread() const;

    UniqueKernelHandle free_;   // a semaphore of one: signalled while nobody holds the gate
    std::atomic<DWORD> ownerThread_{0};
    std::atomic<bool> retryWanted_{false};
    HWND uiWindow_ = nullptr;
    UINT retryMessage_ = 0;
};

}  // namespace proclist
