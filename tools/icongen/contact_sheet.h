// A review picture of every icon: both sizes, enlarged and at true size, on light and dark ground.
#pragma once

#include <string>
#include <vector>

#include "canvas.h"

namespace icongen {

struct SheetIcon {
    Image small;
    Image large;
};

// Binary PPM (P6) bytes of the sheet, icons left to right, top to bottom in the given order.
std::string RenderContactSheet(const std::vector<SheetIcon>& icons, int columns);

}  // namespace icongen
