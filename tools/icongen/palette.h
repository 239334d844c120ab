// The icons' limited palette: each hue has a light top, a base and a dark outline tone.
#pragma once

#include "canvas.h"

namespace icongen {

struct Hue {
    Colour light;
    Colour base;
    Colour outline;
};

// Top-lit gradient of a hue over the vertical extent of a shape.
inline Paint Shade(const Hue& hue, float top, float bottom) { return Paint(hue.light, hue.base, top, bottom); }

namespace hues {
inline const Hue kBlue{Rgb(0x62B0F4), Rgb(0x2A76CF), Rgb(0x174A86)};
inline const Hue kGreen{Rgb(0x74D68F), Rgb(0x2E9E52), Rgb(0x1A5F31)};
inline const Hue kRed{Rgb(0xF4837A), Rgb(0xD43A2F), Rgb(0x84201A)};
inline const Hue kAmber{Rgb(0xFFD874), Rgb(0xF2A42C), Rgb(0x94590C)};
inline const Hue kGrey{Rgb(0xD3D9DF), Rgb(0x8D97A3), Rgb(0x4A535D)};
inline const Hue kSlate{Rgb(0xA7BACE), Rgb(0x62788F), Rgb(0x33424F)};
inline const Hue kTeal{Rgb(0x5ED8DE), Rgb(0x1596A5), Rgb(0x0A5660)};
inline const Hue kPurple{Rgb(0xBC97EE), Rgb(0x7C4DC6), Rgb(0x472A7D)};
inline const Hue kIndigo{Rgb(0x8C94F2), Rgb(0x4A55C8), Rgb(0x2A3180)};
inline const Hue kPaper{Rgb(0xFFFFFF), Rgb(0xE8EDF2), Rgb(0x56616C)};
inline const Hue kFolder{Rgb(0xFFE38E), Rgb(0xF1B93A), Rgb(0x97700F)};
inline const Hue kGold{Rgb(0xFFE27A), Rgb(0xE0A526), Rgb(0x7F5A0B)};
// Dark pictures get a mid-tone rim, which reads on light and on dark ground alike.
inline const Hue kDark{Rgb(0x3A4855), Rgb(0x1E272F), Rgb(0x5A6878)};
}  // namespace hues

inline const Colour kWhite = Rgb(0xFFFFFF);

}  // namespace icongen
