#include "perf/status_bar_layout.h"

#include <gtest/gtest.h>

namespace lmvx::perf {
namespace {

struct EdgeCase {
    int width;
    int edge0, edge1, edge2;
};

class StatusBarEdgesAtWidth : public testing::TestWithParam<EdgeCase> {};

TEST_P(StatusBarEdgesAtWidth, FirstThreeEdges) {
    const EdgeCase& c = GetParam();
    const StatusBarEdges edges = StatusBarLayoutEdges(c.width);
    EXPECT_EQ(edges[kPaneProcesses], c.edge0);
    EXPECT_EQ(edges[kPaneCpu], c.edge1);
    EXPECT_EQ(edges[kPaneMemory], c.edge2);
}

INSTANTIATE_TEST_SUITE_P(Widths, StatusBarEdgesAtWidth,
                         testing::Values(EdgeCase{200, 50, 75, 100}, EdgeCase{201, 100, 125, 150},
                                         EdgeCase{350, 100, 125, 150}, EdgeCase{351, 100, 250, 275},
                                         EdgeCase{500, 100, 250, 275}, EdgeCase{501, 100, 250, 455},
                                         EdgeCase{0, 50, 75, 100}, EdgeCase{1200, 100, 250, 455}));

TEST(StatusBarEdges, IconPanesKeepTwentyFivePixelsAndTheLastReachesTheEnd) {
    for (int width : {0, 200, 201, 351, 501, 2000}) {
        const StatusBarEdges edges = StatusBarLayoutEdges(width);
        EXPECT_EQ(edges[kPaneSpare] - edges[kPaneMemory], 25) << width;
        EXPECT_EQ(edges[kPaneNotice] - edges[kPaneSpare], 25) << width;
        EXPECT_EQ(edges[kPaneFiller], -1) << width;
    }
}

TEST(StatusBarEdges, CreationEdgesAreDefinedForEveryPaneAndAWideBarLaysOutAsCreated) {
    EXPECT_EQ(StatusBarCreationEdges(), (StatusBarEdges{100, 250, 450, 475, 500, -1}));
    EXPECT_EQ(StatusBarLayoutEdges(501)[kPaneSpare], 480);
    EXPECT_NE(StatusBarLayoutEdges(501), StatusBarLayoutEdges(500));
}

}  // namespace
}  // namespace lmvx::perf
