// A hidden top-level window that hears the shell's "TaskbarCreated" broadcast (sent when the taskbar is
// created again, for example after the shell restarted), which message-only windows never receive.
#pragma once
#include <windows.h>

#include <functional>

namespace finch {

class TaskbarListener {
public:
    TaskbarListener() = default;
    ~TaskbarListener();
    TaskbarListener(const TaskbarListener&) = delete;
    TaskbarListener& operator=(const TaskbarListener&) = delete;

    // Creates the window on the calling thread; onTaskbarCreated runs on that thread.
    bool Start(std::function<void()> onTaskbarCreated);
    HWND Window() const { return window_; }

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    std::function<void()> onTaskbarCreated_;
};

}  // namespace finch
