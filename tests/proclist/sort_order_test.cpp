// Direction of every sort mode and the reverse flag, from given keys.
#include <gtest/gtest.h>

#include "proclist/sort_order.h"
#include "proclist/text_compare.h"

namespace proclist {
namespace {

SortKey IndexKey(int index) {
    SortKey key;
    key.itemIndex = index;
    return key;
}
SortKey TreeKey(double position) {
    SortKey key;
    key.treePosition = position;
    return key;
}
SortKey PidKey(unsigned pid) {
    SortKey key;
    key.pid = pid;
    return key;
}
SortKey CounterKey(unsigned value) {
    SortKey key;
    key.counter = value;
    return key;
}
SortKey TextKey(const wchar_t* text) {
    SortKey key;
    key.text = text;
    return key;
}

int Compare(unsigned mode, bool reverse, const SortKey& a, const SortKey& b) {
    return CompareSortKeys(mode, reverse, a, b, CompareTextDefaultLocale);
}

TEST(SortOrder, StartOrderShowsTheHigherIndexFirst) {
    EXPECT_EQ(Compare(kSortStartOrder, false, IndexKey(5), IndexKey(2)), -1);
    EXPECT_EQ(Compare(kSortStartOrder, false, IndexKey(2), IndexKey(5)), 1);
    EXPECT_EQ(Compare(kSortStartOrder, false, IndexKey(3), IndexKey(3)), 0);
    EXPECT_EQ(Compare(kSortStartOrder, true, IndexKey(5), IndexKey(2)), 1);
    EXPECT_EQ(Compare(kSortStartOrder, true, IndexKey(2), IndexKey(5)), -1);
}

TEST(SortOrder, TreeFollowsAscendingPositions) {
    EXPECT_EQ(Compare(kSortProcessTree, false, TreeKey(1.5), TreeKey(2.0)), -1);
    EXPECT_EQ(Compare(kSortProcessTree, false, TreeKey(2.0), TreeKey(1.5)), 1);
    EXPECT_EQ(Compare(kSortProcessTree, false, TreeKey(2.0), TreeKey(2.0)), 0);
    EXPECT_EQ(Compare(kSortProcessTree, true, TreeKey(1.5), TreeKey(2.0)), 1);
}

TEST(SortOrder, ProcessIdAscending) {
    EXPECT_EQ(Compare(kSortProcessId, false, PidKey(8), PidKey(400)), -1);
    EXPECT_EQ(Compare(kSortProcessId, false, PidKey(400), PidKey(8)), 1);
    EXPECT_EQ(Compare(kSortProcessId, false, PidKey(8), PidKey(8)), 0);
    EXPECT_EQ(Compare(kSortProcessId, true, PidKey(8), PidKey(400)), 1);
    // Compared as unsigned numbers: the largest PID value stays largest.
    EXPECT_EQ(Compare(kSortProcessId, false, PidKey(0x80000000u), PidKey(4)), 1);
}

TEST(SortOrder, CountersShowTheLargestFirst) {
    for (unsigned mode : {kSortCpuUsage, kSortMemoryUsage, kSortHandleCount, kSortUserObjects, kSortGdiObjects}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(Compare(mode, false, CounterKey(10), CounterKey(90)), 1);
        EXPECT_EQ(Compare(mode, false, CounterKey(90), CounterKey(10)), -1);
        EXPECT_EQ(Compare(mode, false, CounterKey(90), CounterKey(90)), 0);
        EXPECT_EQ(Compare(mode, true, CounterKey(10), CounterKey(90)), -1);
        EXPECT_EQ(Compare(mode, true, CounterKey(90), CounterKey(10)), 1);
        EXPECT_EQ(Compare(mode, false, CounterKey(0xFFFFFFFFu), CounterKey(1)), -1);
    }
}

TEST(SortOrder, TextModesAscendThroughTheComparer) {
    for (unsigned mode : {kSortProcessName, kSortDescription, kSortCompanyName, kSortPathName, kSortUsername}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(Compare(mode, false, TextKey(L"alpha.exe"), TextKey(L"beta.exe")), -1);
        EXPECT_EQ(Compare(mode, false, TextKey(L"beta.exe"), TextKey(L"alpha.exe")), 1);
        EXPECT_EQ(Compare(mode, false, TextKey(L"beta.exe"), TextKey(L"beta.exe")), 0);
        EXPECT_EQ(Compare(mode, true, TextKey(L"alpha.exe"), TextKey(L"beta.exe")), 1);
        EXPECT_EQ(Compare(mode, true, TextKey(L"beta.exe"), TextKey(L"alpha.exe")), -1);
    }
}

TEST(SortOrder, NamesDifferingOnlyInCaseAreDifferent) {
    const int upperFirst = Compare(kSortProcessName, false, TextKey(L"Notepad.exe"), TextKey(L"notepad.exe"));
    EXPECT_NE(upperFirst, 0);
    EXPECT_EQ(Compare(kSortProcessName, false, TextKey(L"notepad.exe"), TextKey(L"Notepad.exe")), -upperFirst);
}

TEST(SortOrder, TextModesIgnoreOtherKeys) {
    SortKey a = TextKey(L"same");
    SortKey b = TextKey(L"same");
    a.counter = 1;
    b.counter = 2;
    a.pid = 3;
    b.pid = 4;
    EXPECT_EQ(Compare(kSortUsername, false, a, b), 0);
}

int FailingComparer(const std::wstring&, const std::wstring&) {
    return 0;
}

TEST(SortOrder, FailedTextComparisonIsEqual) {
    EXPECT_EQ(CompareSortKeys(kSortPathName, true, TextKey(L"a"), TextKey(L"b"), FailingComparer), 0);
}

TEST(SortOrder, UnknownModesCompareEverythingAsEqual) {
    SortKey a;
    a.itemIndex = 1;
    a.pid = 1;
    a.treePosition = 1;
    a.counter = 1;
    a.text = L"a";
    SortKey b;
    b.itemIndex = 9;
    b.pid = 9;
    b.treePosition = 9;
    b.counter = 9;
    b.text = L"b";
    for (unsigned mode : {13u, 14u, 100u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(Compare(mode, false, a, b), 0);
        EXPECT_EQ(Compare(mode, true, b, a), 0);
    }
}

TEST(SortOrder, EveryKnownModeHasAField) {
    for (unsigned mode = 0; mode < kSortModeCount; ++mode) {
        EXPECT_NE(SortFieldOfMode(mode), SortField::None) << mode;
    }
    EXPECT_EQ(SortFieldOfMode(kSortModeCount), SortField::None);
}

}  // namespace
}  // namespace proclist
