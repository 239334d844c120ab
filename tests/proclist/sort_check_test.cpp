// Bounds of the neighbouring-pair check that decides whether the refresh sorts the list.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "proclist/sort_check.h"

namespace proclist {
namespace {

// Rows hold plain numbers that belong in ascending order; records every pair the check looks at.
struct Rows {
    std::vector<int> values;
    std::vector<std::pair<int, int>> compared;

    int Check() {
        return FindMisplacedPair(static_cast<int>(values.size()), [this](int a, int b) {
            compared.emplace_back(a, b);
            return values[a] > values[b] ? 1 : (values[a] < values[b] ? -1 : 0);
        });
    }
};

TEST(SortCheck, OneOrTwoRowsAreNeverChecked) {
    for (std::vector<int> values : {std::vector<int>{}, {5}, {9, 1}}) {
        Rows rows{values, {}};
        EXPECT_EQ(rows.Check(), -1);
        EXPECT_TRUE(rows.compared.empty());
    }
}

TEST(SortCheck, LastPairIsNeverChecked) {
    Rows rows{{1, 2, 3, 0}, {}};
    EXPECT_EQ(rows.Check(), -1);
    const std::vector<std::pair<int, int>> expected = {{0, 1}, {1, 2}};
    EXPECT_EQ(rows.compared, expected);
}

TEST(SortCheck, ThreeRowsCheckOnlyTheFirstPair) {
    Rows misplacedFirst{{2, 1, 3}, {}};
    EXPECT_EQ(misplacedFirst.Check(), 0);
    Rows misplacedLast{{1, 3, 2}, {}};
    EXPECT_EQ(misplacedLast.Check(), -1);
    EXPECT_EQ(misplacedLast.compared.size(), 1u);
}

TEST(SortCheck, StopsAtTheFirstMisplacedPair) {
    Rows rows{{1, 3, 2, 0, 5, 6}, {}};
    EXPECT_EQ(rows.Check(), 1);
    const std::vector<std::pair<int, int>> expected = {{0, 1}, {1, 2}};
    EXPECT_EQ(rows.compared, expected);
}

TEST(SortCheck, EqualNeighboursAreInOrder) {
    Rows rows{{4, 4, 4, 4}, {}};
    EXPECT_EQ(rows.Check(), -1);
}

}  // namespace
}  // namespace proclist
