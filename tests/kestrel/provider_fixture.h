// A provider initialised for one test and deleted after it, with lookups by pid that tests need.
#pragma once
#include "kestrel.h"

#include <gtest/gtest.h>

#include <functional>

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

}  // namespace kestrel_test
