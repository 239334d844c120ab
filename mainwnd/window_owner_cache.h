// Which process and thread own each top-level window, remembered from one listing of the windows to the
// next. A window's owner never changes while it lives, and its handle is not given to another window for
// a long time after it is gone (part of the handle counts the reuses of its slot). The Process menu counts
// the selected process's windows on every refresh; asking the window manager once per window instead of
// once per window and refresh spares a round trip per foreign window each time.
#pragma once
#include <windows.h>

#include <functional>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace lmvx {

struct WindowOwner {
    DWORD processId = 0;
    DWORD threadId = 0;   // 0: unknown (the window was gone when asked)
};

class WindowOwnerCache {
public:
    // The owners of these windows, in their order. lookup is asked only about windows the previous call
    // did not list or could not answer; windows this call does not list are forgotten. Any thread.
    std::vector<WindowOwner> OwnersOf(const std::vector<HWND>& windows,
                                      const std::function<WindowOwner(HWND)>& lookup);

private:
    std::mutex lock_;
    std::unordered_map<HWND, WindowOwner> known_;
};

}  // namespace lmvx
