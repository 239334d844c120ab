#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "perfgraph_history.h"

namespace wren::perfgraph {
namespace {

constexpr unsigned kSpan = 180000;
constexpr unsigned kInterval = 500;

TEST(HistoryArithmetic, CapacityIntervalsAndScale) {
    EXPECT_EQ(PointCapacity(kSpan, kInterval), kSpan / kInterval);
    EXPECT_EQ(PointCapacity(5, 10), 1u);    // never no room at all
    EXPECT_EQ(PointCapacity(100, 0), 100u); // an interval of 0 counts as 1 ms
    // Boundaries crossed, not time elapsed; across the counter's wrap; a clock going back stays put.
    EXPECT_EQ(IntervalsBetween(1000, 1499, kInterval), 0u);
    EXPECT_EQ(IntervalsBetween(1499, 1500, kInterval), 1u);
    EXPECT_EQ(IntervalsBetween(1000, 2000, kInterval), 2u);
    EXPECT_EQ(IntervalsBetween(1250, 1749, kInterval), 1u);
    const unsigned beforeWrap = 0xFFFFFFFFu - 100;
    EXPECT_EQ(IntervalsBetween(beforeWrap, beforeWrap + 1000, kInterval),
              IntervalsBetween(beforeWrap % kInterval, beforeWrap % kInterval + 1000, kInterval));
    EXPECT_EQ(IntervalsBetween(5000, 4000, kInterval), 0u);
    EXPECT_EQ(ScaleTop(0, 0), 1u);   // never 0 (a set maximum or else the peak: the PERFGRAPH series tests)
}

TEST(HistoryArithmetic, NewestRightOldestLeftValuesFromTheBottomClampedAtTheTop) {
    const unsigned capacity = PointCapacity(kSpan, kInterval);
    EXPECT_EQ(PointX(0, capacity, 200), 199);
    EXPECT_EQ(PointX(capacity - 1, capacity, 200), 0);
    EXPECT_EQ(PointX(capacity + 50, capacity, 200), 0);   // older than kept: at the left edge
    EXPECT_EQ(PointX(0, capacity, 1), 0);
    EXPECT_EQ(PointX(0, 1, 50), 49);
    EXPECT_EQ(ValueY(0, 100, 101), 100);
    EXPECT_EQ(ValueY(100, 100, 101), 0);
    EXPECT_EQ(ValueY(50, 100, 101), 50);
    EXPECT_EQ(ValueY(150, 100, 101), 0);   // above the scale: drawn at the top
    EXPECT_EQ(ValueY(7, 0, 11), 0);         // a zero scale counts as 1
    EXPECT_EQ(ValueY(1, 100, 1), 0);
    EXPECT_EQ(ValueY(0xFFFFFFFFu, 0xFFFFFFFFu, 1080), 0);   // no overflow at the largest values
    EXPECT_EQ(GridPosition(5, 10, 200), 100);
    EXPECT_EQ(GridPosition(1, 10, 5), 0);
    EXPECT_EQ(GridPosition(1, 0, 100), 0);
}

// Points of one interval replace each other; missed intervals repeat the point before; a gap longer than the
// span leaves only repeats and the new point. (Dropping the oldest after the span: the PERFGRAPH series tests.)
TEST(SeriesHistory, OnePointPerIntervalRepeatsForMissedOnes) {
    SeriesHistory history(PointCapacity(kSpan, kInterval));
    history.Add(10, 1000, kInterval);
    history.Add(20, 1200, kInterval);
    history.Add(30, 1500, kInterval);
    history.Add(40, 3000, kInterval);   // three intervals on: two repeats, then the new point
    ASSERT_EQ(history.Count(), 5u);
    const unsigned expected[] = {40, 30, 30, 30, 20};
    for (unsigned age = 0; age < 5; ++age) EXPECT_EQ(history.At(age), expected[age]) << age;
    history.Add(9, 3000 + kSpan * 3, kInterval);
    EXPECT_EQ(history.Count(), history.Capacity());
    EXPECT_EQ(history.At(0), 9u);
    EXPECT_EQ(history.At(history.Capacity() - 1), 40u);
}

TEST(SeriesHistory, PeakOfKeptPointsOnlyAndPolylineOldestFirst) {
    SeriesHistory history(3);
    history.Add(50, 0, kInterval);
    history.Add(7, 500, kInterval);
    EXPECT_EQ(history.Peak(), 50u);
    history.Add(8, 1000, kInterval);
    history.Add(9, 1500, kInterval);   // 50 leaves the ring
    EXPECT_EQ(history.Peak(), 9u);
    EXPECT_EQ(history.At(5), 0u);

    SeriesHistory two(4);
    two.Add(0, 0, kInterval);
    two.Add(100, 500, kInterval);
    const auto line = SeriesPolyline(two, 100, 31, 11);
    ASSERT_EQ(line.size(), 2u);
    EXPECT_EQ(std::make_pair(line[0].x, line[0].y), std::make_pair(20, 10));
    EXPECT_EQ(std::make_pair(line[1].x, line[1].y), std::make_pair(30, 0));   // newest at the right edge
}

// One top per column from the first point to the last, rounded as the line is drawn; points sharing a
// column give it the higher top.
TEST(ColumnTops, OnePerColumnTheHigherWherePointsShareOne) {
    const struct {
        std::vector<PlotPoint> line;
        std::vector<int> tops;
    } cases[] = {
        {{{2, 10}, {6, 2}}, {10, 8, 6, 4, 2}},
        {{{0, 9}, {3, 9}, {3, 1}, {3, 5}, {4, 5}}, {9, 9, 9, 1, 5}},
        {{{0, 0}, {3, 2}}, {0, 1, 1, 2}},
        {{{7, 4}}, {4}},
        {{}, {}},
    };
    for (const auto& c : cases) EXPECT_EQ(ColumnTops(c.line), c.tops) << c.line.size() << " points";
}

}  // namespace
}  // namespace wren::perfgraph
