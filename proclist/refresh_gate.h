// Lets one refresh of the process list run at a time. The list refreshes on the UI thread (commands, and
// the refresh thread's request while the main window is behind) and on the refresh thread (while it is in
// front), and its row copy must not change under either. The UI thread keeps handling the messages sent
// to it while it waits, because the refresh thread holding the gate talks to the list view through them.
#pragma once
#include <windows.h>

#include <atomic>
#include <mutex>

namespace proclist {

class RefreshGate {
public:
    // Holds the gate for its lifetime. Not held when this thread already holds it: a refresh reached again
    // from inside a refresh (through a message the list view sends) does nothing.
    class Pass {
    public:
        Pass(RefreshGate& gate, HWND uiWindow);
        ~Pass();
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;
        bool Held() const { return held_; }

    private:
        RefreshGate& gate_;
        bool held_ = false;
    };

private:
    std::mutex mutex_;
    std::atomic<DWORD> ownerThread_{0};
};

}  // namespace proclist
