// The performance displays' pure logic: CPU levels and their pictures, status bar pane edges, pop-up
// positions, memory figures and texts.
#include <gtest/gtest.h>

#include <set>

#include "perf/cpu_level.h"
#include "perf/popup_layout.h"
#include "perf/popup_text.h"
#include "perf/status_bar_layout.h"
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

// The tray starts at no level (-1), the status bar at level 0 so that its first picture stays below 10 %.
TEST(CpuLevelTracker, ARunOfEqualLevelsChangesOnce) {
    CpuLevelTracker tray(-1), statusBar(0);
    int changes = 0;
    for (unsigned usage : {3u, 5u, 0u, 9u, 7u}) changes += tray.Change(CpuLevelFromUsage(usage)) ? 1 : 0;
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(tray.Last(), 0);
    EXPECT_TRUE(tray.Change(CpuLevelFromUsage(10)));
    EXPECT_FALSE(tray.Change(CpuLevelFromUsage(19)));
    EXPECT_TRUE(tray.Change(CpuLevelFromUsage(9)));
    EXPECT_FALSE(statusBar.Change(CpuLevelFromUsage(0)));
    EXPECT_FALSE(statusBar.Change(CpuLevelFromUsage(9)));
    EXPECT_TRUE(statusBar.Change(CpuLevelFromUsage(10)));
}

// The first three edges step at 200, 350 and 500 pixels; the icon panes keep 25 pixels; the last reaches the end.
TEST(StatusBarEdges, FirstThreeEdgesByWidthThenTwoIconPanesAndTheLastReachesTheEnd) {
    const struct {
        int width, processes, cpu, memory;
    } cases[] = {{200, 50, 75, 100},   {201, 100, 125, 150}, {350, 100, 125, 150}, {351, 100, 250, 275},
                 {500, 100, 250, 275}, {501, 100, 250, 455}, {0, 50, 75, 100},     {2000, 100, 250, 455}};
    for (const auto& c : cases) {
        const StatusBarEdges edges = StatusBarLayoutEdges(c.width);
        EXPECT_EQ(edges[kPaneProcesses], c.processes) << c.width;
        EXPECT_EQ(edges[kPaneCpu], c.cpu) << c.width;
        EXPECT_EQ(edges[kPaneMemory], c.memory) << c.width;
        EXPECT_EQ(edges[kPaneSpare] - edges[kPaneMemory], 25) << c.width;
        EXPECT_EQ(edges[kPaneNotice] - edges[kPaneSpare], 25) << c.width;
        EXPECT_EQ(edges[kPaneFiller], -1) << c.width;
    }
}

TEST(StatusBarEdges, CreationEdgesAreDefinedForEveryPane) {
    EXPECT_EQ(StatusBarCreationEdges(), (StatusBarEdges{100, 250, 450, 475, 500, -1}));
}

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

// Integer arithmetic: 1/3 available shows 67 % used; totals under ten kilobytes show 0 instead of dividing by
// zero; a part larger than the whole never wraps.
TEST(MemoryPercent, UsedPhysicalAndCommitShares) {
    const struct {
        unsigned a, b;
        unsigned usedPhysical, commit;   // UsedPhysicalPercent(total a, available b), CommitPercent(total a, limit b)
    } cases[] = {
        {8000000, 2000000, 75, 100}, {8000000, 8000000, 0, 100}, {8000000, 0, 100, 0}, {3000, 1000, 67, 100},
        {4000000, 16000000, 0, 25},  {0, 16000000, 0, 0},        {1000, 3000, 0, 33},  {5, 9, 0, 0},
        {5, 0, 0, 0},                {9, 3, 0, 0},               {0, 0, 0, 0},         {10, 10, 0, 100},
        {1000, 2000, 0, 50},         {2000, 1000, 50, 100},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UsedPhysicalPercent(c.a, c.b), c.usedPhysical) << c.a << "/" << c.b;
        EXPECT_EQ(CommitPercent(c.a, c.b), c.commit) << c.a << "/" << c.b;
    }
}

TEST(PopupText, FormatsAndMegabytesRoundedDown) {
    EXPECT_EQ(KilobytesToMegabytes(1023), 0u);
    EXPECT_EQ(KilobytesToMegabytes(1024), 1u);
    EXPECT_EQ(KilobytesToMegabytes(2047), 1u);
    EXPECT_EQ(CpuUsageText(12.4), L"12 %");
    EXPECT_EQ(CpuUsageText(99.6), L"100 %");
    EXPECT_EQ(CpuUsageText(0.0), L"0 %");
    EXPECT_EQ(ContextSwitchText(1234), L"1234/s");
    EXPECT_EQ(PercentAndMegabytesText(42, 1234), L"(42 %) 1234 MB");
}

}  // namespace
}  // namespace lmvx::perf
