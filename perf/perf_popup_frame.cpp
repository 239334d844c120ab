#include "perf/perf_popup_frame.h"

#include "wren.h"

namespace lmvx::perf {
namespace {

struct GlassMargins {
    int left, right, top, bottom;
};
using ExtendFrameFunction = HRESULT(WINAPI*)(HWND, const GlassMargins*);

constexpr int kGlassBottom = 47;
constexpr BYTE kLayeredAlpha = 192;

// dwmapi is looked up at run time: it does not exist before Vista.
HMODULE DwmLibrary() {
    static HMODULE library = LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return library;
}

}  // namespace

bool UsesGlassFramePath() {
    return wren::IsOSVistaOrHigher() != 0;
}

bool ExtendGlassFrame(HWND window) {
    HMODULE dwm = DwmLibrary();
    if (!dwm) return false;
    auto extend = reinterpret_cast<ExtendFrameFunction>(GetProcAddress(dwm, "DwmExtendFrameIntoClientArea"));
    if (!extend) return false;
    const GlassMargins margins{0, 0, 0, kGlassBottom};
    return SUCCEEDED(extend(window, &margins));
}

void MakeLayeredFrame(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    // The shadow belongs to the window class, so it is set on the class; the classic path only.
    SetClassLongPtrW(window, GCL_STYLE, GetClassLongPtrW(window, GCL_STYLE) | CS_DROPSHADOW);
    SetWindowLongPtrW(window, GWL_EXSTYLE, GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_LAYERED);
    SetLayeredWindowAttributes(window, 0, kLayeredAlpha, LWA_ALPHA);
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE) & ~static_cast<LONG_PTR>(WS_CAPTION);
    SetWindowLongPtrW(window, GWL_STYLE, style);
    RECT outer = client;
    AdjustWindowRectEx(&outer, static_cast<DWORD>(style), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
    SetWindowPos(window, nullptr, 0, 0, outer.right - outer.left - 1, outer.bottom - outer.top + 7,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

}  // namespace lmvx::perf
