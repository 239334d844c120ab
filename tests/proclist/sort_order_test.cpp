// Direction of every sort mode and the reverse flag, from given keys.
#include <gtest/gtest.h>

#include <vector>

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

// Each mode's direction: low compared with high gives lowVsHigh, the other way round its negation, a key with
// itself 0, and the reverse flag turns the result round. Start order shows the higher index first, counters
// the largest first; tree positions, PIDs (as unsigned numbers) and texts ascend.
TEST(SortOrder, EachModeHasItsDirectionAndReverseTurnsItRound) {
    struct Case {
        unsigned mode;
        SortKey low;
        SortKey high;
        int lowVsHigh;
    };
    std::vector<Case> cases = {{kSortStartOrder, IndexKey(2), IndexKey(5), 1},
                               {kSortProcessTree, TreeKey(1.5), TreeKey(2.0), -1},
                               {kSortProcessId, PidKey(8), PidKey(400), -1},
                               {kSortProcessId, PidKey(4), PidKey(0x80000000u), -1}};
    for (unsigned mode : {kSortCpuUsage, kSortMemoryUsage, kSortHandleCount, kSortUserObjects, kSortGdiObjects}) {
        cases.push_back({mode, CounterKey(10), CounterKey(90), 1});
        cases.push_back({mode, CounterKey(1), CounterKey(0xFFFFFFFFu), 1});
    }
    for (unsigned mode : {kSortProcessName, kSortDescription, kSortCompanyName, kSortPathName, kSortUsername}) {
        cases.push_back({mode, TextKey(L"alpha.exe"), TextKey(L"beta.exe"), -1});
    }
    for (const Case& c : cases) {
        SCOPED_TRACE(c.mode);
        EXPECT_EQ(Compare(c.mode, false, c.low, c.high), c.lowVsHigh);
        EXPECT_EQ(Compare(c.mode, false, c.high, c.low), -c.lowVsHigh);
        EXPECT_EQ(Compare(c.mode, false, c.high, c.high), 0);
        EXPECT_EQ(Compare(c.mode, true, c.low, c.high), -c.lowVsHigh);
        EXPECT_EQ(Compare(c.mode, true, c.high, c.low), c.lowVsHigh);
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
