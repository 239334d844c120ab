// The pop-ups' frame: on Vista and later the caption stays and the glass frame reaches into the client area;
// before Vista the pop-up is a translucent layered window without caption.
#pragma once
#include <windows.h>

namespace lmvx::perf {

// True on Vista and later: the frame keeps its caption (ExtendGlassFrame), and placement uses its offsets.
bool UsesGlassFramePath();
// Extends the glass frame 47 pixels into the bottom of the client area. False when the call fails (no
// desktop composition, as under Wine): the frame then simply stays an ordinary frame.
bool ExtendGlassFrame(HWND window);

// The layered path: drop shadow, 192/255 opaque, no caption, and the size that keeps the client area.
void MakeLayeredFrame(HWND window);

}  // namespace lmvx::perf
