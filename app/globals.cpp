#include "app/lmvx.h"

namespace lmvx {

HWND g_statusWindow = nullptr;
int g_debugPrivilege = 0;
kestrel::TL_PROCESSLIST g_processList;
MainWindowStart g_mainWindowStart;

void ShowStartupStatus(const wchar_t* text) {
    // Without a status window there is nothing to show; a null window would repaint the whole desktop.
    if (!g_statusWindow) return;
    SetWindowTextW(g_statusWindow, text);
    InvalidateRect(g_statusWindow, nullptr, FALSE);
    UpdateWindow(g_statusWindow);
}

}  // namespace lmvx
