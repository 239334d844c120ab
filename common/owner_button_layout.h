// The arithmetic of the owner-drawn push button: its colours, its fill by state and where icon and text go.
#pragma once
#include <windows.h>

namespace lmvx {

// The face of a focused button: face + 0x0A0A0A as one integer, so a channel near 255 carries into the next
// one instead of saturating. Intended; the buttons have always looked this way.
COLORREF LightFaceColor(COLORREF face);

enum class ButtonFill { Face, LightFace, Highlight };

// Pressed (selected or pushed) wins over focused; a focused button gets the light face.
ButtonFill ChooseButtonFill(bool selected, bool pushed, bool focused);

struct OwnerButtonLayout {
    RECT inner;        // the item rectangle less its one-pixel frame
    POINT icon;        // top-left of the 16 x 16 icon (when there is one)
    RECT text;         // where the text is drawn, single-line and vertically centred
};

OwnerButtonLayout LayOutOwnerButton(const RECT& item, bool hasIcon);

}  // namespace lmvx
