#include "systray_taskbar_listener.h"

namespace finch {
namespace {

constexpr wchar_t kClassName[] = L"FinchTaskbarListener";

UINT TaskbarCreatedMessage() {
    static const UINT message = RegisterWindowMessageW(L"TaskbarCreated");
    return message;
}

HINSTANCE ThisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&TaskbarCreatedMessage), &module);
    return module;
}

}  // namespace

TaskbarListener::~TaskbarListener() {
    if (!window_) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);   // no call back into this object from here on
    if (!DestroyWindow(window_)) PostMessageW(window_, WM_CLOSE, 0, 0);   // created on another thread
}

bool TaskbarListener::Start(std::function<void()> onTaskbarCreated) {
    if (window_) return true;
    onTaskbarCreated_ = std::move(onTaskbarCreated);
    HINSTANCE instance = ThisModule();
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = kClassName;
    if (!RegisterClassExW(&windowClass) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
    TaskbarCreatedMessage();
    // Never shown: a popup without WS_VISIBLE still receives broadcasts.
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW, kClassName, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, instance,
                              nullptr);
    if (!window_) return false;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return true;
}

LRESULT CALLBACK TaskbarListener::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == TaskbarCreatedMessage() && message != 0) {
        auto* self = reinterpret_cast<TaskbarListener*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self && self->onTaskbarCreated_) self->onTaskbarCreated_();
        return 0;
    }
    if (message == WM_CLOSE) {
        DestroyWindow(window);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace finch
