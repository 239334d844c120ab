#include "common/owner_button_layout.h"

namespace lmvx {

namespace {

constexpr int kPadding = 6;
constexpr int kIconSize = 16;
constexpr int kIconColumn = 21;   // icon and the gap after it

}  // namespace

COLORREF LightFaceColor(COLORREF face) {
    return face + 0x0A0A0A;
}

ButtonFill ChooseButtonFill(bool selected, bool pushed, bool focused) {
    if (selected || pushed) return ButtonFill::Highlight;
    return focused ? ButtonFill::LightFace : ButtonFill::Face;
}

OwnerButtonLayout LayOutOwnerButton(const RECT& item, bool hasIcon) {
    OwnerButtonLayout layout = {};
    layout.inner = {item.left + 1, item.top + 1, item.right - 1, item.bottom - 1};
    const int innerHeight = layout.inner.bottom - layout.inner.top;
    layout.icon = {layout.inner.left + kPadding, layout.inner.top + innerHeight / 2 - kIconSize / 2};
    layout.text = layout.inner;
    layout.text.left = layout.inner.left + (hasIcon ? kIconColumn : 0) + kPadding;
    return layout;
}

}  // namespace lmvx
