// Colours, fill choice and layout of the owner-drawn push button.
#include "common/owner_button_layout.h"

#include <gtest/gtest.h>

namespace {

using lmvx::ButtonFill;

TEST(OwnerButtonColours, LightFaceAddsTenToEachChannel) {
    EXPECT_EQ(RGB(0xDA, 0xDA, 0xDA), lmvx::LightFaceColor(RGB(0xD0, 0xD0, 0xD0)));
}

TEST(OwnerButtonColours, LightFaceCarriesIntoTheNextChannelInsteadOfSaturating) {
    // Intended: one integer addition, as the buttons have always been painted.
    EXPECT_EQ(static_cast<COLORREF>(0x00FA0B04), lmvx::LightFaceColor(RGB(0xFA, 0x00, 0xF0)));
    EXPECT_EQ(static_cast<COLORREF>(0x000B0A09), lmvx::LightFaceColor(RGB(0xFF, 0xFF, 0x00)));
}

TEST(OwnerButtonFill, PressedWinsOverFocus) {
    EXPECT_EQ(ButtonFill::Highlight, lmvx::ChooseButtonFill(false, true, true));
    EXPECT_EQ(ButtonFill::Highlight, lmvx::ChooseButtonFill(true, false, true));
    EXPECT_EQ(ButtonFill::Highlight, lmvx::ChooseButtonFill(true, true, false));
}

TEST(OwnerButtonFill, FocusLightensAnUnpressedButton) {
    EXPECT_EQ(ButtonFill::LightFace, lmvx::ChooseButtonFill(false, false, true));
    EXPECT_EQ(ButtonFill::Face, lmvx::ChooseButtonFill(false, false, false));
}

TEST(OwnerButtonLayout, InnerRectangleLeavesAOnePixelFrame) {
    const lmvx::OwnerButtonLayout layout = lmvx::LayOutOwnerButton({10, 20, 110, 45}, false);
    EXPECT_EQ(11, layout.inner.left);
    EXPECT_EQ(21, layout.inner.top);
    EXPECT_EQ(109, layout.inner.right);
    EXPECT_EQ(44, layout.inner.bottom);
}

TEST(OwnerButtonLayout, IconSitsAtTheLeftCentredAndPushesTheText) {
    const RECT item = {10, 20, 110, 45};
    const lmvx::OwnerButtonLayout withIcon = lmvx::LayOutOwnerButton(item, true);
    const lmvx::OwnerButtonLayout without = lmvx::LayOutOwnerButton(item, false);
    EXPECT_EQ(withIcon.inner.left + 6, withIcon.icon.x);
    EXPECT_EQ(withIcon.inner.top + (withIcon.inner.bottom - withIcon.inner.top) / 2 - 8, withIcon.icon.y);
    EXPECT_EQ(withIcon.inner.left + 21 + 6, withIcon.text.left);
    EXPECT_EQ(without.inner.left + 6, without.text.left);
    EXPECT_EQ(without.inner.right, without.text.right);
    EXPECT_EQ(without.inner.top, without.text.top);
    EXPECT_EQ(without.inner.bottom, without.text.bottom);
}

}  // namespace
