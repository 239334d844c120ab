// Which windows of a process count and how their titles are read.
#include "mainwnd/process_windows_rules.h"

#include <gtest/gtest.h>

namespace {

using lmvx::TitleRead;

TEST(WindowTitleRead, OwnWindowsOnOtherThreadsAreAskedWithATimeOut) {
    EXPECT_EQ(TitleRead::TimedMessage, lmvx::ChooseTitleRead(10, 21, 10, 20));
}

TEST(WindowTitleRead, OwnThreadAndOtherProcessesAreReadDirectly) {
    EXPECT_EQ(TitleRead::Direct, lmvx::ChooseTitleRead(10, 20, 10, 20));
    EXPECT_EQ(TitleRead::Direct, lmvx::ChooseTitleRead(11, 21, 10, 20));
    EXPECT_EQ(TitleRead::Direct, lmvx::ChooseTitleRead(11, 20, 10, 20));
}

TEST(WindowQualifies, VisibleWindowOfTheProcessWithATitle) {
    EXPECT_TRUE(lmvx::QualifiesAsProcessWindow(true, 7, 7, 1));
    EXPECT_TRUE(lmvx::QualifiesAsProcessWindow(true, 7, 7, lmvx::kWindowTitleCapacity - 1));
}

TEST(WindowQualifies, HiddenForeignOrUntitledWindowsDoNot) {
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(false, 7, 7, 5));
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(true, 8, 7, 5));
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(true, 7, 7, 0));
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(true, 7, 7, lmvx::kWindowTitleCapacity));
}

TEST(WindowMenuPosition, ZeroCoordinatesComeFromTheCursorEachOnItsOwn) {
    const POINT cursor = {300, 400};
    const POINT given = lmvx::WindowMenuPosition(10, 20, cursor);
    EXPECT_EQ(10, given.x);
    EXPECT_EQ(20, given.y);
    const POINT noX = lmvx::WindowMenuPosition(0, 20, cursor);
    EXPECT_EQ(300, noX.x);
    EXPECT_EQ(20, noX.y);
    const POINT noY = lmvx::WindowMenuPosition(10, 0, cursor);
    EXPECT_EQ(10, noY.x);
    EXPECT_EQ(400, noY.y);
    const POINT neither = lmvx::WindowMenuPosition(0, 0, cursor);
    EXPECT_EQ(300, neither.x);
    EXPECT_EQ(400, neither.y);
}

}  // namespace
