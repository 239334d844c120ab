#include <gtest/gtest.h>

#include "center_math.h"

using wren::Box;
using wren::CenteredPosition;

namespace {

Box Sized(int left, int top, int width, int height) { return {left, top, left + width, top + height}; }

const Box kWorkArea = Sized(0, 0, 1280, 770);

// Where a window of the size lands; its old position must not count.
std::pair<int, int> Placed(int width, int height, const Box& over, const Box& workArea = kWorkArea) {
    const wren::Position position = CenteredPosition(Sized(900, 700, width, height), over, workArea);
    return {position.x, position.y};
}

TEST(CenteredPosition, CentresOnTheOtherWindowOrWorkAreaAndKeepsInsideTheWorkArea) {
    // Centre on centre, with integer halves: 200 + (640 - 300) / 2, 150 + (480 - 200) / 2.
    EXPECT_EQ(Placed(300, 200, Sized(200, 150, 640, 480)), std::make_pair(370, 290));
    EXPECT_EQ(Placed(400, 300, kWorkArea), std::make_pair(440, 235));
    // Sticking out right or bottom, left or top: moved back inside.
    EXPECT_EQ(Placed(300, 200, Sized(kWorkArea.right - 50, kWorkArea.bottom - 40, 100, 80)),
              std::make_pair(kWorkArea.right - 300, kWorkArea.bottom - 200));
    EXPECT_EQ(Placed(300, 200, Sized(-60, -30, 100, 80)), std::make_pair(0, 0));
    // Larger than the work area: the caption stays reachable at its top left.
    EXPECT_EQ(Placed(kWorkArea.right * 2, kWorkArea.bottom * 2, kWorkArea), std::make_pair(0, 0));
    // A monitor left of and above the primary one.
    EXPECT_EQ(Placed(200, 100, Sized(-1500, -200, 800, 600), Sized(-1920, -300, 1920, 1040)), std::make_pair(-1200, 50));
}

}  // namespace
