#include "refresh_gate.h"

namespace proclist {

RefreshGate::Pass::Pass(RefreshGate& gate, HWND uiWindow) : gate_(gate) {
    const DWORD self = GetCurrentThreadId();
    if (gate_.ownerThread_ == self) return;
    if (!gate_.mutex_.try_lock()) {
        if (GetWindowThreadProcessId(uiWindow, nullptr) == self) {
            // Handle sent messages while waiting: the holder may be inside SendMessage to this thread.
            do {
                MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_SENDMESSAGE);
                MSG message;
                PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
            } while (!gate_.mutex_.try_lock());
        } else {
            gate_.mutex_.lock();
        }
    }
    gate_.ownerThread_ = self;
    held_ = true;
}

RefreshGate::Pass::~Pass() {
    if (!held_) return;
    gate_.ownerThread_ = 0;
    gate_.mutex_.unlock();
}

}  // namespace proclist
