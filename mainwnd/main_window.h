// The main window: dialog 129, run modally by the UI thread with the start record as parameter.
#pragma once
#include <windows.h>

#include <functional>

namespace lmvx {

INT_PTR CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The refresh period the main window runs at now, in ms; the stored interval while there is no main window.
unsigned MainWindowRefreshPeriod();
// Runs work on the main window's thread: at once when called there, otherwise by a message sent to the main
// window (the caller waits). The details pane and the Process popup are the UI thread's alone; the refresh
// thread hands its part of them over this way.
void RunOnMainWindowThread(HWND mainWindow, const std::function<void()>& work);

}  // namespace lmvx
