// Windows for the helper tests: owned top-level windows and a counter of one message sent to a control.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <memory>
#include <type_traits>

struct WindowDestroyer {
    void operator()(HWND window) const { DestroyWindow(window); }
};
using UniqueWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDestroyer>;

enum class Shown { No, Yes };

// Hidden unless asked: under Wine without a window manager, every top-level window that was on screen
// costs about two seconds to destroy.
inline UniqueWindow CreateTopLevel(int x, int y, int width, int height, Shown shown = Shown::No) {
    const DWORD style = WS_POPUP | (shown == Shown::Yes ? WS_VISIBLE : 0);
    return UniqueWindow(CreateWindowExW(0, L"STATIC", L"test", style, x, y, width, height, nullptr, nullptr,
                                        GetModuleHandleW(nullptr), nullptr));
}

inline HWND CreateChild(HWND parent, const wchar_t* className, int controlId, DWORD style, const wchar_t* text) {
    return CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 300, 200, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)), GetModuleHandleW(nullptr),
                           nullptr);
}

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
