#include "mainwnd/properties_windows.h"

#include <algorithm>

#include "app/lmvx.h"
#include "mainwnd/main_window_state.h"
#include "mainwnd/properties_pages.h"
#include "props/properties_window.h"

namespace lmvx {

void OpenPropertiesWindows::Add(HWND frame) {
    if (frame && std::find(frames_.begin(), frames_.end(), frame) == frames_.end()) frames_.push_back(frame);
}

void OpenPropertiesWindows::Remove(HWND frame) { std::erase(frames_, frame); }

void OpenPropertiesWindows::CloseAll(DWORD timeoutMs) {
    for (HWND frame : frames_) PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
    const ULONGLONG deadline = GetTickCount64() + timeoutMs;
    while (!frames_.empty()) {
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline) break;
        // Only sent messages: the windows' announcements arrive that way; nothing else of ours runs meanwhile.
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(deadline - now), QS_SENDMESSAGE);
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

void OpenPropertiesWindow(unsigned pid, HWND mainWindow) {
    const auto* state = reinterpret_cast<const MainWindowState*>(GetWindowLongPtrW(mainWindow, GWLP_USERDATA));
    const unsigned period = IsMainWindowRecord(state) ? state->refreshCycle.GetPeriod() : 0;
    ShowProcessProperties(pid, mainWindow, mainWindow, &g_processList, ProgramPropertyPages(), period);
}

}  // namespace lmvx
