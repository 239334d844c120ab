// Plays the user for a modal dialog: a second thread waits until a dialog of the owner thread is on
// screen, then runs the given action on it (read texts, click buttons). Stops looking once destroyed,
// so a dialog that never appears cannot hang the test.
#pragma once
#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "window_texts.h"

class DialogDriver {
public:
    using Action = std::function<void(HWND dialog)>;
    explicit DialogDriver(Action action);   // drives dialogs of the calling thread
    ~DialogDriver();
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;

    bool Acted() const { return acted_; }

private:
    void Run(DWORD ownerThread);

    Action action_;
    std::atomic<bool> stop_{false};
    std::atomic<bool> acted_{false};
    std::thread thread_;
};

using lmvx_test::WindowText;
// The way a user picks a radio button or presses a button: a click, delivered on the dialog's own thread.
void Click(HWND dialog, int controlId);
