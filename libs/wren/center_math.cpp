#include "center_math.h"

namespace wren {
namespace {

// One axis: centre, then clamp so that the near edge wins when the window does not fit.
int CenteredStart(int size, int overStart, int overEnd, int areaStart, int areaEnd) {
    int start = overStart + ((overEnd - overStart) - size) / 2;
    if (start + size > areaEnd) start = areaEnd - size;
    if (start < areaStart) start = areaStart;
    return start;
}

}  // namespace

Position CenteredPosition(const Box& window, const Box& over, const Box& workArea) {
    const int width = window.right - window.left;
    const int height = window.bottom - window.top;
    return {CenteredStart(width, over.left, over.right, workArea.left, workArea.right),
            CenteredStart(height, over.top, over.bottom, workArea.top, workArea.bottom)};
}

}  // namespace wren
