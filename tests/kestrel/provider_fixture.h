// A provider initialised for one test and deleted after it, with lookups by pid that tests need.
#pragma once
#include "kestrel.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace kestrel_test {

class ProviderTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(list.Init(), 1); }
    void TearDown() override { list.Delete(); }

    // Updates until the condition holds, at most `updates` times with a short pause between; true when it held.
    bool UpdateUntil(const std::function<bool()>& condition, int updates = 100) {
        for (int i = 0; i < updates; ++i) {
            list.Update();
            if (condition()) return true;
            Sleep(50);
        }
        return false;
    }

    // The index of the first process whose parent is `parentPid`, or -1.
    int FindChildOf(unsigned parentPid) const {
        for (int i = 0; i < list.GetItemCount(); ++i) {
            if (list.GetItemParentPID(i) == parentPid && list.GetItemPID(i) != parentPid) return i;
        }
        return -1;
    }

    kestrel::TL_PROCESSLIST list;
};

// Date and time of day agree (the day of the week is not compared; milliseconds only when asked).
inline void ExpectSameTime(const SYSTEMTIME& a, const SYSTEMTIME& e, bool milliseconds = true) {
    EXPECT_EQ(std::tie(a.wYear, a.wMonth, a.wDay, a.wHour, a.wMinute, a.wSecond),
              std::tie(e.wYear, e.wMonth, e.wDay, e.wHour, e.wMinute, e.wSecond));
    if (milliseconds) {
        EXPECT_EQ(a.wMilliseconds, e.wMilliseconds);
    }
}

}  // namespace kestrel_test
