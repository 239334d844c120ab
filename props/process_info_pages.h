// The pages of the process properties window that describe the process itself: General, Start,
// Performance, Memory and Token. Each is a child dialog whose WM_INITDIALOG receives the window's
// ProcessPropertiesContext.
#pragma once
#include <windows.h>

namespace lmvx {

INT_PTR CALLBACK GeneralPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK StartPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK PerformancePageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK MemoryPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK TokenPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
