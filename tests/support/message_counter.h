// Counts how often one message reaches a window, through a subclass that lives as long as the counter.
#pragma once
#include <windows.h>
#include <commctrl.h>

// Counts how often `message` reaches `window` while the counter lives.
class MessageCounter {
public:
    MessageCounter(HWND window, UINT message) : window_(window), message_(message) {
        SetWindowSubclass(window_, Count, reinterpret_cast<UINT_PTR>(this), reinterpret_cast<DWORD_PTR>(this));
    }
    ~MessageCounter() { RemoveWindowSubclass(window_, Count, reinterpret_cast<UINT_PTR>(this)); }
    MessageCounter(const MessageCounter&) = delete;
    MessageCounter& operator=(const MessageCounter&) = delete;

    int Seen() const { return seen_; }

private:
    static LRESULT CALLBACK Count(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR self) {
        auto* counter = reinterpret_cast<MessageCounter*>(self);
        if (message == counter->message_) ++counter->seen_;
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND window_;
    UINT message_;
    int seen_ = 0;
};
