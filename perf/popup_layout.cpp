#include "perf/popup_layout.h"

namespace lmvx::perf {

namespace {
constexpr int kAnchorGapGlass = 15;
constexpr int kTaskbarGapXGlass = 16;
constexpr int kTaskbarGapXClassic = 8;
constexpr int kTaskbarGapYGlass = 16;
constexpr int kTaskbarGapYClassic = 6;
}  // namespace

POINT PopupPositionAnchored(const RECT& anchor, const PopupPlacementInput& input) {
    const int width = input.window.cx;
    const int height = input.window.cy;
    const int gap = input.glassFrame ? kAnchorGapGlass : 0;
    const RECT& desktop = input.desktop;

    POINT at{anchor.left, anchor.bottom + gap};
    if (at.y + height > desktop.bottom) at.y = anchor.top - height - gap;

    if (at.x < desktop.left) at.x = desktop.left;
    if (at.y < desktop.top) at.y = desktop.top;
    if (at.x + width > desktop.right) at.x = desktop.right - width;
    if (at.y + height > desktop.bottom) at.y = desktop.bottom - height;
    return at;
}

POINT PopupPositionAtTaskbar(int taskbarHeight, const PopupPlacementInput& input) {
    const int gapX = input.glassFrame ? kTaskbarGapXGlass : kTaskbarGapXClassic;
    const int gapY = input.glassFrame ? kTaskbarGapYGlass : kTaskbarGapYClassic;
    return POINT{input.desktop.right - input.window.cx - gapX,
                 input.desktop.bottom - taskbarHeight - input.window.cy - gapY};
}

bool IsEmptyAnchor(const RECT& anchor) {
    return anchor.left == 0 && anchor.top == 0 && anchor.right == 0 && anchor.bottom == 0;
}

}  // namespace lmvx::perf
