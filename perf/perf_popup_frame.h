// The pop-ups' frame: the glass frame where the system offers it, otherwise a translucent layered window.
#pragma once
#include <windows.h>

namespace lmvx::perf {

// Extends the glass frame 47 pixels into the bottom of the client area. False when the system has no
// glass (before Vista, or without desktop composition, as under Wine): the caller then uses the layered path.
bool ExtendGlassFrame(HWND window);

// The layered path: drop shadow, 192/255 opaque, no caption, and the size that keeps the client area.
void MakeLayeredFrame(HWND window);

}  // namespace lmvx::perf
