#include <gtest/gtest.h>

#include "center_math.h"

using wren::Box;
using wren::CenteredPosition;

namespace {

Box Sized(int left, int top, int width, int height) { return {left, top, left + width, top + height}; }

int CentreX(const Box& box) { return (box.left + box.right) / 2; }
int CentreY(const Box& box) { return (box.top + box.bottom) / 2; }

const Box kWorkArea = Sized(0, 0, 1280, 770);

}  // namespace

TEST(CenteredPosition, PutsTheWindowsCentreOnTheOtherWindowsCentre) {
    const Box window = Sized(5, 9, 300, 200);
    const Box over = Sized(200, 150, 640, 480);
    const wren::Position position = CenteredPosition(window, over, kWorkArea);
    const Box placed = Sized(position.x, position.y, 300, 200);
    EXPECT_EQ(CentreX(placed), CentreX(over));
    EXPECT_EQ(CentreY(placed), CentreY(over));
}

TEST(CenteredPosition, CentresOnTheWorkAreaWhenGivenTheWorkArea) {
    const wren::Position position = CenteredPosition(Sized(0, 0, 400, 300), kWorkArea, kWorkArea);
    EXPECT_EQ(position.x - kWorkArea.left, kWorkArea.right - (position.x + 400));
    EXPECT_EQ(position.y - kWorkArea.top, kWorkArea.bottom - (position.y + 300));
}

TEST(CenteredPosition, MovesBackInsideWhenItWouldStickOutRightOrBottom) {
    const Box over = Sized(kWorkArea.right - 50, kWorkArea.bottom - 40, 100, 80);
    const wren::Position position = CenteredPosition(Sized(0, 0, 300, 200), over, kWorkArea);
    EXPECT_EQ(position.x + 300, kWorkArea.right);
    EXPECT_EQ(position.y + 200, kWorkArea.bottom);
}

TEST(CenteredPosition, MovesBackInsideWhenItWouldStickOutLeftOrTop) {
    const Box over = Sized(kWorkArea.left - 60, kWorkArea.top - 30, 100, 80);
    const wren::Position position = CenteredPosition(Sized(0, 0, 300, 200), over, kWorkArea);
    EXPECT_EQ(position.x, kWorkArea.left);
    EXPECT_EQ(position.y, kWorkArea.top);
}

TEST(CenteredPosition, WindowLargerThanTheWorkAreaKeepsItsCaptionReachable) {
    const Box huge = Sized(0, 0, kWorkArea.right * 2, kWorkArea.bottom * 2);
    const wren::Position position = CenteredPosition(huge, kWorkArea, kWorkArea);
    EXPECT_EQ(position.x, kWorkArea.left);
    EXPECT_EQ(position.y, kWorkArea.top);
}

TEST(CenteredPosition, WorksOnAMonitorLeftOfAndAbovePrimary) {
    const Box secondary = Sized(-1920, -300, 1920, 1040);
    const Box over = Sized(-1500, -200, 800, 600);
    const wren::Position position = CenteredPosition(Sized(0, 0, 200, 100), over, secondary);
    EXPECT_EQ(CentreX(Sized(position.x, position.y, 200, 100)), CentreX(over));
    EXPECT_EQ(CentreY(Sized(position.x, position.y, 200, 100)), CentreY(over));
}

TEST(CenteredPosition, SizeOfTheWindowIsWhatCountsNotItsOldPosition) {
    const Box over = Sized(100, 100, 500, 500);
    EXPECT_EQ(CenteredPosition(Sized(0, 0, 200, 100), over, kWorkArea).x,
              CenteredPosition(Sized(900, 700, 200, 100), over, kWorkArea).x);
}
