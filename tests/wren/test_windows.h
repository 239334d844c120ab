// Windows for the helper tests: owned top-level windows and a counter of one message sent to a control.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <memory>

#include "message_counter.h"
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

