// The real main window hosted in the test program together with the system counters, graphs and
// performance source, so that its status bar, pop-ups and tray menu run as in the program and can be
// driven with the real mouse and read directly.
#pragma once
#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "message_pump.h"

namespace lmvx_test {
class ScopedHostedProgram;
class HostedMainWindow;
}  // namespace lmvx_test

namespace perfgui_test {

class HostedPerfWindow {
public:
    HostedPerfWindow();
    ~HostedPerfWindow();
    HostedPerfWindow(const HostedPerfWindow&) = delete;
    HostedPerfWindow& operator=(const HostedPerfWindow&) = delete;

    HWND Main() const;
    HWND StatusBar() const;
    // The pop-up owned by the main window with this caption, or null.
    HWND FindPopup(const wchar_t* caption) const;

private:
    std::unique_ptr<lmvx_test::ScopedHostedProgram> program_;
    std::unique_ptr<lmvx_test::HostedMainWindow> window_;
};

using lmvx_test::PumpUntil;
// Dispatches this thread's messages for the whole time.
void PumpFor(DWORD ms);

std::wstring PaneText(HWND bar, int pane);
// The pane's rectangle on the screen.
RECT PaneScreenRect(HWND bar, int pane);
POINT CentreOf(const RECT& rect);

// The real pointer: a move the window under it sees as WM_MOUSEMOVE, and a left click where it is.
void MovePointerTo(POINT at);
void ClickLeftButton();

}  // namespace perfgui_test
