#include "dialog_driver.h"

namespace {

struct Search {
    HWND found = nullptr;
};

BOOL CALLBACK FindVisibleDialog(HWND window, LPARAM parameter) {
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (std::wstring(className) == L"#32770" && IsWindowVisible(window)) {
        reinterpret_cast<Search*>(parameter)->found = window;
        return FALSE;
    }
    return TRUE;
}

}  // namespace

DialogDriver::DialogDriver(Action action)
    : action_(std::move(action)), thread_([this, owner = GetCurrentThreadId()] { Run(owner); }) {}

DialogDriver::~DialogDriver() {
    stop_ = true;
    thread_.join();
}

void DialogDriver::Run(DWORD ownerThread) {
    while (!stop_) {
        Search search;
        EnumThreadWindows(ownerThread, FindVisibleDialog, reinterpret_cast<LPARAM>(&search));
        if (search.found) {
            // Marked before acting: the action may end the dialog, and the test reads the mark as soon as
            // the dialog call returns, possibly before this thread runs again.
            acted_ = true;
            action_(search.found);
            return;
        }
        Sleep(10);
    }
}

void Click(HWND dialog, int controlId) { SendMessageW(GetDlgItem(dialog, controlId), BM_CLICK, 0, 0); }
