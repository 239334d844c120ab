#include "refresh_gate.h"

namespace proclist {

RefreshGate::RefreshGate() : free_(CreateSemaphoreW(nullptr, 1, 1, nullptr)) {}

void RefreshGate::SetUiWindow(HWND uiWindow, UINT retryMessage) {
    uiWindow_ = uiWindow;
    retryMessage_ = retryMessage;
}

bool RefreshGate::OnUiThread() const {
    return uiWindow_ && GetWindowThreadProcessId(uiWindow_, nullptr) == GetCurrentThreadId();
}

bool RefreshGate::TryEnter() {
    return WaitForSingleObject(free_.Get(), 0) == WAIT_OBJECT_0;
}

void RefreshGate::Enter() {
    WaitForSingleObject(free_.Get(), INFINITE);
}

void RefreshGate::Leave() {
    ownerThread_ = 0;
    ReleaseSemaphore(free_.Get(), 1, nullptr);
    // Asked for after the UI thread found the gate held: that refresh runs now, on the UI thread.
    if (retryWanted_.exchange(false) && uiWindow_) PostMessageW(uiWindow_, retryMessage_, 0, 0);
}

RefreshGate::Pass::Pass(RefreshGate& gate) : gate_(gate) {
    if (gate_.IsHeldByThisThread() || !gate_.free_) return;
    if (gate_.OnUiThread()) {
        if (!gate_.TryEnter()) {
            // Wanted first, tried again second: a holder letting go in between either sees the wish or
            // has let go before the second try.
            gate_.retryWanted_ = true;
            if (!gate_.TryEnter()) return;
            gate_.retryWanted_ = false;
        }
    } else {
        gate_.Enter();
    }
    gate_.ownerThread_ = GetCurrentThreadId();
    held_ = true;
}

RefreshGate::Pass::~Pass() {
    if (held_) gate_.Leave();
}

}  // namespace proclist
