#include "perf/popup_layout.h"

#include <gtest/gtest.h>

namespace lmvx::perf {
namespace {

constexpr RECT kDesktop{0, 0, 1280, 800};

PopupPlacementInput Input(bool glass, RECT desktop = kDesktop) {
    return PopupPlacementInput{SIZE{240, 170}, desktop, glass};
}

TEST(PopupAnchored, OpensBelowThePaneAtItsLeftEdge) {
    const RECT pane{300, 500, 450, 520};
    const POINT classic = PopupPositionAnchored(pane, Input(false));
    EXPECT_EQ(classic.x, 300);
    EXPECT_EQ(classic.y, 520);
    const POINT glass = PopupPositionAnchored(pane, Input(true));
    EXPECT_EQ(glass.x, 300);
    EXPECT_EQ(glass.y, 535);
}

TEST(PopupAnchored, OpensAboveWhenBelowWouldPassTheDesktopBottom) {
    const RECT pane{300, 700, 450, 720};
    EXPECT_EQ(PopupPositionAnchored(pane, Input(false)).y, 700 - 170);
    EXPECT_EQ(PopupPositionAnchored(pane, Input(true)).y, 700 - 170 - 15);
}

TEST(PopupAnchored, JustFittingBelowStaysBelow) {
    const RECT pane{300, 600, 450, 630};   // 630 + 170 == 800
    EXPECT_EQ(PopupPositionAnchored(pane, Input(false)).y, 630);
}

TEST(PopupAnchored, ClampedOntoTheDesktop) {
    // Right edge: shifted left.
    EXPECT_EQ(PopupPositionAnchored(RECT{1200, 100, 1270, 120}, Input(false)).x, 1280 - 240);
    // Left of the desktop: shifted right.
    EXPECT_EQ(PopupPositionAnchored(RECT{-50, 100, 20, 120}, Input(false)).x, 0);
    // Too close to the top to open above, too low to open below: stays at the top.
    const RECT tall{10, 100, 80, 700};
    EXPECT_EQ(PopupPositionAnchored(tall, Input(false)).y, 0);
}

TEST(PopupAnchored, DesktopThatDoesNotStartAtZero) {
    const RECT desktop{-1280, 0, 0, 800};
    const POINT at = PopupPositionAnchored(RECT{-100, 100, -10, 120}, Input(false, desktop));
    EXPECT_EQ(at.x, -240);
}

TEST(PopupAtTaskbar, BottomRightAboveTheTaskbar) {
    const POINT glass = PopupPositionAtTaskbar(30, Input(true));
    EXPECT_EQ(glass.x, 1280 - 240 - 16);
    EXPECT_EQ(glass.y, 800 - 30 - 170 - 16);
    const POINT classic = PopupPositionAtTaskbar(30, Input(false));
    EXPECT_EQ(classic.x, 1280 - 240 - 8);
    EXPECT_EQ(classic.y, 800 - 30 - 170 - 6);
}

TEST(PopupAtTaskbar, ATaskbarAtTheSideStillCountsItsHeight) {
    // A vertical taskbar is as tall as the desktop: the height is taken as it is, as on every system.
    const POINT at = PopupPositionAtTaskbar(800, Input(false));
    EXPECT_EQ(at.y, 800 - 800 - 170 - 6);
    EXPECT_EQ(PopupPositionAtTaskbar(0, Input(false)).y, 800 - 170 - 6);
}

TEST(PopupAnchor, OnlyAllZeroIsEmpty) {
    EXPECT_TRUE(IsEmptyAnchor(RECT{0, 0, 0, 0}));
    EXPECT_FALSE(IsEmptyAnchor(RECT{0, 0, 0, 1}));
    EXPECT_FALSE(IsEmptyAnchor(RECT{5, 0, 0, 0}));
}

}  // namespace
}  // namespace lmvx::perf
