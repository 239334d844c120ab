// Restoring and saving the main window's placement.
#pragma once
#include <windows.h>

namespace lmvx {

inline constexpr int kDefaultMainWindowWidth = 656;
inline constexpr int kDefaultMainWindowHeight = 580;

// The show command a stored placement is restored with: maximised stays maximised, everything else
// (minimised included) comes back as a normal, visible window.
UINT RestoredShowCommand(UINT storedShowCommand);

// Applies the stored placement when exactly one whole record is stored, else gives the window its
// default size without moving it.
void RestoreMainWindowPlacement(HWND window);
void SaveMainWindowPlacement(HWND window);

}  // namespace lmvx
