// Thread CPU usage and the priority level from the system's base priorities.
#include "thread_math.h"

#include <gtest/gtest.h>

namespace {

using kestrel::detail::ThreadCpuPercent;
using kestrel::detail::ThreadPriorityLevel;

TEST(ThreadCpuPercent, IsAShareOfAllProcessors) {
    EXPECT_DOUBLE_EQ(50.0, ThreadCpuPercent(100, 600, 1000, 1));
    EXPECT_DOUBLE_EQ(12.5, ThreadCpuPercent(0, 500, 1000, 4));
    EXPECT_DOUBLE_EQ(100.0, ThreadCpuPercent(0, 1100, 1000, 1)) << "timer granularity never shows above 100";
    EXPECT_EQ(0.0, ThreadCpuPercent(600, 100, 1000, 1)) << "a reused id's smaller time";
    EXPECT_EQ(0.0, ThreadCpuPercent(0, 500, 0, 1)) << "nothing measured yet";
}

TEST(ThreadPriorityLevel, FromAbsoluteLevelsAsWindowsReportsThemOrRelativeOnesAsWineDoes) {
    struct Case {
        long thread, process;
        int level;
    };
    const Case cases[] = {
        {8, 8, 0},   {9, 8, 1},    {10, 8, 2},   {7, 8, -1}, {6, 8, -2},  {15, 8, 15}, {1, 8, -15},
        {4, 4, 0},   {1, 4, -15},  {15, 13, 15}, {11, 13, -2}, {24, 24, 0}, {31, 24, 15}, {16, 24, -15},
        {26, 24, 2}, {22, 24, -2},
        // Wine reports the relative level itself, with a class index as the process's priority.
        {0, 2, 0},   {-2, 2, -2},  {15, 2, 15},  {-15, 2, -15},
    };
    for (const Case& c : cases) EXPECT_EQ(c.level, ThreadPriorityLevel(c.thread, c.process)) << c.thread << "/" << c.process;
}

}  // namespace
