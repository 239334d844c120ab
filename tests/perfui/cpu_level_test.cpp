#include "perf/cpu_level.h"

#include <gtest/gtest.h>

#include <set>

#include "resource.h"

namespace lmvx::perf {
namespace {

TEST(CpuLevel, BoundariesOfTheLevelsAndAboveFullTheTopLevel) {
    const std::pair<unsigned, int> cases[] = {{0, 0},   {9, 0},    {10, 1},   {59, 5},         {60, 6},
                                              {99, 9}, {100, 10}, {109, 10}, {110, 10}, {0xFFFFFFFFu, 10}};
    for (const auto& [usage, level] : cases) EXPECT_EQ(CpuLevelFromUsage(usage), level) << usage;
}

TEST(CpuLevel, LevelSixIsResource172BetweenFiveAndSeven) {
    const auto& ids = CpuLevelIconIds();
    EXPECT_EQ(ids[5], 168);
    EXPECT_EQ(ids[6], 172);
    EXPECT_EQ(ids[7], 169);
    EXPECT_EQ(ids[0], IDI_CPU_LEVEL_0);
    EXPECT_EQ(ids[10], IDI_CPU_LEVEL_10);
    EXPECT_EQ(std::set<unsigned short>(ids.begin(), ids.end()).size(), ids.size());
}

TEST(CpuLevelTracker, ARunOfEqualLevelsChangesOnce) {
    CpuLevelTracker tray(-1);
    int changes = 0;
    for (unsigned usage : {3u, 5u, 0u, 9u, 7u}) changes += tray.Change(CpuLevelFromUsage(usage)) ? 1 : 0;
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(tray.Last(), 0);
    EXPECT_TRUE(tray.Change(CpuLevelFromUsage(10)));
    EXPECT_FALSE(tray.Change(CpuLevelFromUsage(19)));
    EXPECT_TRUE(tray.Change(CpuLevelFromUsage(9)));
}

TEST(CpuLevelTracker, StartingAtZeroKeepsTheFirstPictureBelowTenPercent) {
    CpuLevelTracker statusBar(0);
    EXPECT_FALSE(statusBar.Change(CpuLevelFromUsage(0)));
    EXPECT_FALSE(statusBar.Change(CpuLevelFromUsage(9)));
    EXPECT_TRUE(statusBar.Change(CpuLevelFromUsage(10)));
}

}  // namespace
}  // namespace lmvx::perf
