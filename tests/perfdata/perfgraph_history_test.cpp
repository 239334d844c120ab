#include <gtest/gtest.h>

#include "perfgraph_history.h"

namespace wren::perfgraph {
namespace {

constexpr unsigned kSpan = 180000;
constexpr unsigned kInterval = 500;

TEST(PointCapacity, SpanOverInterval) {
    EXPECT_EQ(PointCapacity(kSpan, kInterval), kSpan / kInterval);
    EXPECT_EQ(PointCapacity(10, 10), 1u);
    EXPECT_EQ(PointCapacity(5, 10), 1u);    // never no room at all
    EXPECT_EQ(PointCapacity(100, 0), 100u); // an interval of 0 counts as 1 ms
}

TEST(IntervalsBetween, CountsBoundariesNotElapsedTimeAcrossTheWrapAndNeverBackwards) {
    EXPECT_EQ(IntervalsBetween(1000, 1499, kInterval), 0u);
    EXPECT_EQ(IntervalsBetween(1499, 1500, kInterval), 1u);   // 1 ms, but across a boundary
    EXPECT_EQ(IntervalsBetween(1000, 2000, kInterval), 2u);
    EXPECT_EQ(IntervalsBetween(1250, 1749, kInterval), 1u);
    const unsigned beforeWrap = 0xFFFFFFFFu - 100;
    EXPECT_EQ(IntervalsBetween(beforeWrap, beforeWrap + 1000, kInterval),
              IntervalsBetween(beforeWrap % kInterval, beforeWrap % kInterval + 1000, kInterval));
    EXPECT_EQ(IntervalsBetween(5000, 4000, kInterval), 0u) << "a clock going back stays in the interval";
}

TEST(ScaleTop, SetMaximumWinsElsePeak) {
    EXPECT_EQ(ScaleTop(100, 250), 100u);
    EXPECT_EQ(ScaleTop(0, 250), 250u);
    EXPECT_EQ(ScaleTop(0, 0), 1u);   // an all-zero series still has a scale
}

TEST(PointX, NewestRightOldestLeft) {
    const unsigned capacity = PointCapacity(kSpan, kInterval);
    EXPECT_EQ(PointX(0, capacity, 200), 199);
    EXPECT_EQ(PointX(capacity - 1, capacity, 200), 0);
    EXPECT_LT(PointX(10, capacity, 200), PointX(9, capacity, 200));
    EXPECT_EQ(PointX(capacity + 50, capacity, 200), 0);   // older than kept: at the left edge
    EXPECT_EQ(PointX(0, capacity, 1), 0);
    EXPECT_EQ(PointX(0, 1, 50), 49);
}

TEST(ValueY, ScaledFromBottomAndClampedAtTheTop) {
    EXPECT_EQ(ValueY(0, 100, 101), 100);
    EXPECT_EQ(ValueY(100, 100, 101), 0);
    EXPECT_EQ(ValueY(50, 100, 101), 50);
    EXPECT_EQ(ValueY(150, 100, 101), 0);   // above the scale: drawn at the top
    EXPECT_EQ(ValueY(7, 0, 11), 0);         // a zero scale counts as 1
    EXPECT_EQ(ValueY(1, 100, 1), 0);
    EXPECT_EQ(ValueY(0xFFFFFFFFu, 0xFFFFFFFFu, 1080), 0);   // no overflow at the largest values
}

TEST(GridPosition, EqualParts) {
    EXPECT_EQ(GridPosition(5, 10, 200), 100);
    EXPECT_EQ(GridPosition(1, 10, 5), 0);
    EXPECT_EQ(GridPosition(1, 0, 100), 0);
}

TEST(SeriesHistory, PointsOfOneIntervalReplaceEachOther) {
    SeriesHistory history(PointCapacity(kSpan, kInterval));
    history.Add(10, 1000, kInterval);
    history.Add(20, 1200, kInterval);
    EXPECT_EQ(history.Count(), 1u);
    EXPECT_EQ(history.At(0), 20u);
    history.Add(30, 1500, kInterval);
    EXPECT_EQ(history.Count(), 2u);
    EXPECT_EQ(history.At(0), 30u);
    EXPECT_EQ(history.At(1), 20u);
}

TEST(SeriesHistory, MissedIntervalsRepeatThePointBefore) {
    SeriesHistory history(PointCapacity(kSpan, kInterval));
    history.Add(10, 1000, kInterval);
    history.Add(40, 2500, kInterval);   // three intervals on: two repeats, then the new point
    ASSERT_EQ(history.Count(), 4u);
    EXPECT_EQ(history.At(0), 40u);
    EXPECT_EQ(history.At(1), 10u);
    EXPECT_EQ(history.At(2), 10u);
    EXPECT_EQ(history.At(3), 10u);
}

TEST(SeriesHistory, KeepsCapacityPointsAndDropsTheOldestAfterTheSpan) {
    const unsigned capacity = PointCapacity(kSpan, kInterval);
    SeriesHistory history(capacity);
    const unsigned start = 7000;
    for (unsigned i = 0; i < capacity; ++i) history.Add(i + 1, start + i * kInterval, kInterval);
    ASSERT_EQ(history.Count(), capacity);
    EXPECT_EQ(history.At(capacity - 1), 1u);   // the first point is still there
    history.Add(capacity + 1, start + capacity * kInterval, kInterval);   // one span after the first point
    EXPECT_EQ(history.Count(), capacity);
    EXPECT_EQ(history.At(capacity - 1), 2u);   // the first point is gone
    EXPECT_EQ(history.At(0), capacity + 1);
}

TEST(SeriesHistory, AGapLongerThanTheSpanLeavesOnlyRepeatsAndTheNewPoint) {
    const unsigned capacity = PointCapacity(kSpan, kInterval);
    SeriesHistory history(capacity);
    history.Add(5, 0, kInterval);
    history.Add(9, kSpan * 3, kInterval);
    EXPECT_EQ(history.Count(), capacity);
    EXPECT_EQ(history.At(0), 9u);
    EXPECT_EQ(history.At(capacity - 1), 5u);
}

TEST(SeriesHistory, PeakOfKeptPointsOnly) {
    SeriesHistory history(3);
    history.Add(50, 0, kInterval);
    history.Add(7, 500, kInterval);
    EXPECT_EQ(history.Peak(), 50u);
    history.Add(8, 1000, kInterval);
    history.Add(9, 1500, kInterval);   // 50 leaves the ring
    EXPECT_EQ(history.Peak(), 9u);
    EXPECT_EQ(history.At(5), 0u);
}

TEST(SeriesPolyline, OldestFirstNewestAtTheRightEdge) {
    SeriesHistory history(4);
    history.Add(0, 0, kInterval);
    history.Add(100, 500, kInterval);
    const auto line = SeriesPolyline(history, 100, 31, 11);
    ASSERT_EQ(line.size(), 2u);
    EXPECT_EQ(line[1].x, 30);
    EXPECT_EQ(line[1].y, 0);
    EXPECT_EQ(line[0].x, 20);
    EXPECT_EQ(line[0].y, 10);
}

}  // namespace
}  // namespace wren::perfgraph

namespace wren::perfgraph {
namespace {

TEST(ColumnTops, OneTopPerColumnFromTheFirstPointToTheLast) {
    const std::vector<PlotPoint> line = {{2, 10}, {6, 2}};
    const std::vector<int> tops = ColumnTops(line);
    ASSERT_EQ(tops.size(), 5u);
    EXPECT_EQ(tops.front(), 10);
    EXPECT_EQ(tops.back(), 2);
    for (size_t i = 1; i < tops.size(); ++i) EXPECT_LT(tops[i], tops[i - 1]);   // rising line: rising tops
}

TEST(ColumnTops, PointsSharingAColumnGiveItTheHigherTop) {
    const std::vector<PlotPoint> line = {{0, 9}, {3, 9}, {3, 1}, {3, 5}, {4, 5}};
    const std::vector<int> tops = ColumnTops(line);
    ASSERT_EQ(tops.size(), 5u);
    EXPECT_EQ(tops[3], 1);
    EXPECT_EQ(tops[4], 5);
    EXPECT_EQ(tops[1], 9);
}

TEST(ColumnTops, EmptyAndSinglePointLines) {
    EXPECT_TRUE(ColumnTops({}).empty());
    const std::vector<int> single = ColumnTops({{7, 4}});
    ASSERT_EQ(single.size(), 1u);
    EXPECT_EQ(single[0], 4);
}

}  // namespace
}  // namespace wren::perfgraph
