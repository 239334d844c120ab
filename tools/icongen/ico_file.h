// The .ico container: an icon directory followed by one 32-bit BMP entry per size
// (BITMAPINFOHEADER with doubled height, bottom-up BGRA rows, then the 1-bit AND mask).
#pragma once

#include <cstdint>
#include <vector>

#include "canvas.h"

namespace icongen {

std::vector<uint8_t> EncodeIco(const std::vector<Image>& images);

}  // namespace icongen
