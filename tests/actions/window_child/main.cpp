// lmvx_window_child.exe [--minimized] <title>...: shows one top-level window per title ("" gives a window
// without a title), the first one minimised when asked, and exits when all of them have been closed. The
// exit code is the number of windows that received WM_CLOSE, so a test can tell which were asked to close.
#include <windows.h>

#include <cwchar>

namespace {

constexpr wchar_t kClassName[] = L"LumivexWindowChild";
int g_openWindows = 0;
int g_closeRequests = 0;

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CLOSE:
        ++g_closeRequests;
        DestroyWindow(window);
        return 0;
    case WM_DESTROY:
        if (--g_openWindows == 0) PostQuitMessage(g_closeRequests);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClassName;
    if (!RegisterClassW(&windowClass)) return 100;

    int first = 1;
    bool minimized = false;
    if (argc > 1 && std::wcscmp(argv[1], L"--minimized") == 0) {
        minimized = true;
        first = 2;
    }
    for (int i = first; i < argc; ++i) {
        HWND window = CreateWindowExW(0, kClassName, argv[i], WS_OVERLAPPEDWINDOW, 40 * i, 40 * i, 240, 120, nullptr,
                                      nullptr, windowClass.hInstance, nullptr);
        if (!window) return 101;
        ++g_openWindows;
        ShowWindow(window, i == first && minimized ? SW_SHOWMINNOACTIVE : SW_SHOWNOACTIVATE);
    }
    if (g_openWindows == 0) return 0;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
