#include "perf/popup_layout.h"

#include <gtest/gtest.h>

namespace lmvx::perf {
namespace {

constexpr RECT kDesktop{0, 0, 1280, 800};
constexpr SIZE kPopup{240, 170};

TEST(PopupAnchored, BelowThePaneAtItsLeftEdgeAboveWhenBelowPassesTheBottomAndAlwaysOnTheDesktop) {
    const struct {
        const char* what;
        RECT pane;
        bool glass;
        RECT desktop;
        POINT expected;
    } cases[] = {
        {"below, classic", {300, 500, 450, 520}, false, kDesktop, {300, 520}},
        {"below, glass frame", {300, 500, 450, 520}, true, kDesktop, {300, 535}},
        {"just fits below", {300, 600, 450, 630}, false, kDesktop, {300, 630}},
        {"above, classic", {300, 700, 450, 720}, false, kDesktop, {300, 530}},
        {"above, glass frame", {300, 700, 450, 720}, true, kDesktop, {300, 515}},
        {"past the right edge", {1200, 100, 1270, 120}, false, kDesktop, {1040, 120}},
        {"left of the desktop", {-50, 100, 20, 120}, false, kDesktop, {0, 120}},
        {"fits neither above nor below: the top", {10, 100, 80, 700}, false, kDesktop, {10, 0}},
        {"a desktop left of zero", {-100, 100, -10, 120}, false, {-1280, 0, 0, 800}, {-240, 120}},
        {"left of a desktop left of zero", {-1300, 100, -1250, 120}, false, {-1280, 0, 0, 800}, {-1280, 120}},
    };
    for (const auto& c : cases) {
        const POINT at = PopupPositionAnchored(c.pane, PopupPlacementInput{kPopup, c.desktop, c.glass});
        EXPECT_EQ(at.x, c.expected.x) << c.what;
        EXPECT_EQ(at.y, c.expected.y) << c.what;
    }
}

// Bottom right above the taskbar; a vertical taskbar is as tall as the desktop and its height is taken as
// it is, as on every system.
TEST(PopupAtTaskbar, BottomRightAboveTheTaskbarByItsHeight) {
    const struct {
        int taskbarHeight;
        bool glass;
        POINT expected;
    } cases[] = {
        {30, true, {1280 - 240 - 16, 800 - 30 - 170 - 16}},
        {30, false, {1280 - 240 - 8, 800 - 30 - 170 - 6}},
        {800, false, {1280 - 240 - 8, 800 - 800 - 170 - 6}},
        {0, false, {1280 - 240 - 8, 800 - 170 - 6}},
    };
    for (const auto& c : cases) {
        const POINT at = PopupPositionAtTaskbar(c.taskbarHeight, PopupPlacementInput{kPopup, kDesktop, c.glass});
        EXPECT_EQ(at.x, c.expected.x) << c.taskbarHeight << (c.glass ? " glass" : " classic");
        EXPECT_EQ(at.y, c.expected.y) << c.taskbarHeight << (c.glass ? " glass" : " classic");
    }
}

TEST(PopupAnchor, OnlyAllZeroIsEmpty) {
    EXPECT_TRUE(IsEmptyAnchor(RECT{0, 0, 0, 0}));
    EXPECT_FALSE(IsEmptyAnchor(RECT{0, 0, 0, 1}));
    EXPECT_FALSE(IsEmptyAnchor(RECT{5, 0, 0, 0}));
}

}  // namespace
}  // namespace lmvx::perf
