// PERFGRAPH through the library: series registration, feeding, scaling and the contract's edge cases.
#include <gtest/gtest.h>

#include "wren.h"

namespace {

constexpr unsigned kSpan = 180000;
constexpr unsigned kInterval = 500;

TEST(PerfGraphSeries, EveryOperationFailsBeforeInit) {
    wren::PERFGRAPH graph;
    EXPECT_EQ(graph.SetDataPoint(1, 0, 0), 0);
    EXPECT_EQ(graph.SetScaleMax(1, 0), 0);
    EXPECT_EQ(graph.RenderOpen(nullptr, nullptr, 0), nullptr);
    EXPECT_EQ(graph.RenderGrid(), 0);
    EXPECT_EQ(graph.RenderClose(), 0);
    EXPECT_EQ(graph.Delete(), 0);
    EXPECT_EQ(graph.GetPointCapacity(), 0u);
}

// Series 1 scales to its set maximum, series 2 to the peak of its kept points, series 0 is never fed.
TEST(PerfGraphSeries, ThreeMinutesAtHalfASecondIs360PointsPerSeriesScaledAndSeriesOutsideRefused) {
    wren::PERFGRAPH graph;
    ASSERT_NE(graph.Init(kSpan, kInterval, 3), 0);
    EXPECT_EQ(graph.GetSeriesCount(), 3u);
    EXPECT_EQ(graph.GetPointCapacity(), kSpan / kInterval);
    graph.SetScaleMax(100, 1);
    const unsigned start = GetTickCount();
    for (unsigned i = 0; i <= kSpan / kInterval + 10; ++i) {
        graph.SetDataPoint(i, start + i * kInterval, 1);
        graph.SetDataPoint(4711 - i, start + i * kInterval, 2);
    }
    EXPECT_EQ(graph.GetPointCount(1), kSpan / kInterval);
    EXPECT_EQ(graph.GetPoint(1, 0), kSpan / kInterval + 10);
    EXPECT_EQ(graph.GetPoint(1, kSpan / kInterval - 1), 11u);   // points older than the span are gone
    EXPECT_EQ(graph.GetPointCount(0), 0u);                      // series are independent
    EXPECT_EQ(graph.GetScaleMax(1), 100u);
    EXPECT_EQ(graph.GetScaleTop(1), 100u);
    EXPECT_EQ(graph.GetScaleMax(2), 0u);
    EXPECT_EQ(graph.GetScaleTop(2), 4711u - 11);   // the oldest point kept, not one dropped, not the newest
    EXPECT_EQ(graph.SetDataPoint(1, 0, 3), 0);
    EXPECT_EQ(graph.SetRegisterDisplayInfo(L"x", L"y", 1, 0, 3), 0);
    EXPECT_EQ(graph.SetScaleMax(5, 3), 0);
    EXPECT_EQ(graph.GetPoint(3, 0), 0u);
}

TEST(PerfGraphSeries, DisplayInfoNamesCutToTheBufferAndTheDivisor) {
    wren::PERFGRAPH graph;
    ASSERT_NE(graph.Init(kSpan, kInterval, 2), 0);
    ASSERT_NE(graph.SetRegisterDisplayInfo(L"Physical Memory", L"MB", 1024, RGB(0, 255, 0), 0), 0);
    wchar_t name[64] = {}, unit[8] = {}, small[8];
    graph.GetSeriesName(0, name, 64);
    EXPECT_STREQ(name, L"Physical Memory");
    graph.GetSeriesUnit(0, unit, 8);
    EXPECT_STREQ(unit, L"MB");
    EXPECT_EQ(graph.GetSeriesColour(0), RGB(0, 255, 0));
    EXPECT_EQ(graph.GetDisplayDivisor(0), 1024u);
    graph.SetDataPoint(3 * 1024 + 1023, GetTickCount(), 0);   // fed in KB, shown in whole MB
    EXPECT_EQ(graph.GetDisplayValue(0), 3u);

    graph.SetRegisterDisplayInfo(L"Context Switches", L"/s", 0, 0, 1);
    ASSERT_NE(graph.GetSeriesName(1, small, 8), 0);
    EXPECT_STREQ(small, L"Context");
    graph.SetDataPoint(77, GetTickCount(), 1);
    EXPECT_EQ(graph.GetDisplayValue(1), 77u) << "a divisor of 0 shows the fed value";
}

TEST(PerfGraphSeries, AnEmptyGraphOfNoSeriesCanBeDrawnAndDeletedAndInitAgainStartsOver) {
    // The pages draw a temporary Init(10, 10, 0) graph when their process is gone.
    wren::PERFGRAPH graph;
    ASSERT_NE(graph.Init(10, 10, 0), 0);
    EXPECT_EQ(graph.GetPointCapacity(), 1u);
    EXPECT_EQ(graph.RenderFill(0, 0), 0);
    EXPECT_EQ(graph.Delete(), 1);
    EXPECT_EQ(graph.Delete(), 0);
    ASSERT_NE(graph.Init(kSpan, kInterval, 1), 0);
    graph.SetDataPoint(5, GetTickCount(), 0);
    ASSERT_NE(graph.Init(kSpan, kInterval, 1), 0);
    EXPECT_EQ(graph.GetPointCount(0), 0u);
}

}  // namespace
