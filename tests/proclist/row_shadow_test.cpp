// Bookkeeping of the copy of the rows last written to the process list.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "proclist/row_shadow.h"

namespace proclist {
namespace {

std::vector<unsigned> Pids(const RowShadow& shadow) {
    std::vector<unsigned> pids;
    for (int row = 0; row < shadow.Count(); ++row) pids.push_back(shadow.PidAt(row));
    return pids;
}

int Ascending(int a, int b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

TEST(RowShadow, InsertedRowKnowsItsFirstCellAndEmptyOthers) {
    RowShadow shadow;
    shadow.Insert(0, 42, 3, L"a.exe");
    ASSERT_EQ(shadow.Count(), 1);
    EXPECT_EQ(shadow.PidAt(0), 42u);
    EXPECT_FALSE(shadow.IsCellDifferent(0, 0, L"a.exe"));
    EXPECT_TRUE(shadow.IsCellDifferent(0, 0, L"b.exe"));
    for (int column = 1; column < kColumnCount; ++column) {
        EXPECT_FALSE(shadow.IsCellDifferent(0, column, L""));
        EXPECT_TRUE(shadow.IsCellDifferent(0, column, L"0"));
    }
    EXPECT_FALSE(shadow.IsIndentDifferent(0, 0));
    EXPECT_TRUE(shadow.IsIndentDifferent(0, 1));
    EXPECT_FALSE(shadow.IsImageDifferent(0, 3));
    EXPECT_TRUE(shadow.IsImageDifferent(0, 0));
}

TEST(RowShadow, InsertAtTopShiftsTheOtherRowsDown) {
    RowShadow shadow;
    shadow.Insert(0, 1, 0, L"one");
    shadow.Insert(0, 2, 0, L"two");
    shadow.Insert(0, 3, 0, L"three");
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{3, 2, 1}));
    EXPECT_EQ(shadow.FindRow(1), 2);
    EXPECT_EQ(shadow.FindRow(3), 0);
    EXPECT_EQ(shadow.FindRow(7), -1);
    EXPECT_FALSE(shadow.IsCellDifferent(2, 0, L"one"));
}

TEST(RowShadow, InsertBeyondTheEndAppends) {
    RowShadow shadow;
    shadow.Insert(0, 1, 0, L"");
    shadow.Insert(9, 2, 0, L"");
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{1, 2}));
}

TEST(RowShadow, RecordedCellsMatchOnlyTheirText) {
    RowShadow shadow;
    shadow.Insert(0, 5, 0, L"x");
    shadow.RecordCell(0, 3, L"1,024 K");
    EXPECT_FALSE(shadow.IsCellDifferent(0, 3, L"1,024 K"));
    EXPECT_TRUE(shadow.IsCellDifferent(0, 3, L"1,028 K"));
    shadow.ForgetCell(0, 3);
    EXPECT_TRUE(shadow.IsCellDifferent(0, 3, L"1,024 K"));
    EXPECT_TRUE(shadow.IsCellDifferent(0, 3, L""));
    shadow.RecordIndent(0, 2);
    EXPECT_FALSE(shadow.IsIndentDifferent(0, 2));
    shadow.RecordImage(0, 7);
    EXPECT_FALSE(shadow.IsImageDifferent(0, 7));
    EXPECT_TRUE(shadow.IsImageDifferent(0, 3));
}

TEST(RowShadow, EraseRemovesOneRowAndIgnoresBadRows) {
    RowShadow shadow;
    for (unsigned pid : {1u, 2u, 3u}) shadow.Insert(0, pid, 0, std::to_wstring(pid));
    shadow.Erase(1);
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{3, 1}));
    EXPECT_FALSE(shadow.IsCellDifferent(1, 0, L"1"));
    shadow.Erase(-1);
    shadow.Erase(2);
    EXPECT_EQ(shadow.Count(), 2);
}

TEST(RowShadow, ResetKnowsPidsButNoCellIndentOrImage) {
    RowShadow shadow;
    shadow.Insert(0, 9, 1, L"old");
    shadow.ResetToPids({4, 5});
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{4, 5}));
    EXPECT_TRUE(shadow.IsCellDifferent(0, 0, L""));
    EXPECT_TRUE(shadow.IsIndentDifferent(1, 0));
    EXPECT_TRUE(shadow.IsImageDifferent(1, 0));
}

TEST(RowShadow, PermuteCarriesEachRowsCells) {
    RowShadow shadow;
    for (unsigned pid : {1u, 2u, 3u}) shadow.Insert(0, pid, static_cast<int>(pid), std::to_wstring(pid));
    shadow.Permute({2, 0, 1});  // rows were 3, 2, 1
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{1, 3, 2}));
    EXPECT_FALSE(shadow.IsCellDifferent(0, 0, L"1"));
    EXPECT_FALSE(shadow.IsImageDifferent(1, 3));
    EXPECT_FALSE(shadow.IsCellDifferent(2, 0, L"2"));
}

TEST(RowShadow, PermuteOfAnotherLengthChangesNothing) {
    RowShadow shadow;
    for (unsigned pid : {1u, 2u}) shadow.Insert(0, pid, 0, L"");
    shadow.Permute({0});
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{2, 1}));
}

TEST(RowShadow, ReorderFollowsTheGivenPidsAndKeepsCells) {
    RowShadow shadow;
    for (unsigned pid : {1u, 2u, 3u}) shadow.Insert(0, pid, 0, std::to_wstring(pid));
    shadow.Reorder({2, 1, 3});
    EXPECT_EQ(Pids(shadow), (std::vector<unsigned>{2, 1, 3}));
    EXPECT_FALSE(shadow.IsCellDifferent(0, 0, L"2"));
    EXPECT_FALSE(shadow.IsCellDifferent(2, 0, L"3"));
}

TEST(RowShadow, ReorderWithUnknownMissingOrRepeatedPidsStartsAgain) {
    for (std::vector<unsigned> order : {std::vector<unsigned>{1, 2, 8}, {1, 2}, {1, 1, 2}, {1, 2, 3, 4}}) {
        RowShadow shadow;
        for (unsigned pid : {1u, 2u, 3u}) shadow.Insert(0, pid, 0, std::to_wstring(pid));
        shadow.Reorder(order);
        EXPECT_EQ(Pids(shadow), order);
        EXPECT_TRUE(shadow.IsCellDifferent(0, 0, L"1"));
    }
}

// A stable sort's row positions; unique tells whether no two neighbours compare equal.
TEST(SortedRowOrder, GivesTheStableOrderAndWhetherItIsTheOnlyOne) {
    const struct {
        std::vector<int> keys;
        std::vector<int> order;
        bool unique;
    } cases[] = {{{30, 10, 20}, {1, 2, 0}, true}, {{5, 1, 5, 0}, {3, 1, 0, 2}, false}, {{}, {}, true}, {{4}, {0}, true}};
    for (const auto& c : cases) {
        bool unique = !c.unique;
        EXPECT_EQ(SortedRowOrder(c.keys, Ascending, &unique), c.order);
        EXPECT_EQ(unique, c.unique) << c.keys.size();
    }
}

}  // namespace
}  // namespace proclist
