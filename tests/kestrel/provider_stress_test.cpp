// The provider under a refresh loop: readers on another thread, and no handle growth over many updates.
#include "child_process.h"
#include "provider_fixture.h"

#include <atomic>
#include <cwchar>
#include <string>
#include <thread>

using kestrel_test::ProviderTest;

namespace {

// Reads the whole snapshot once; true when it was one snapshot throughout (no switch during the read) and
// everything in it agreed: every pid maps back to its index, and every child sits one level below its parent.
bool ReadConsistently(const kestrel::TL_PROCESSLIST& list, bool& consistent) {
    const unsigned before = list.GetUpdateCount();
    bool agreed = true;
    const int count = list.GetItemCount();
    for (int i = 0; i < count; ++i) {
        const unsigned pid = list.GetItemPID(i);
        // Strings are read at once: they are only promised until the next update.
        const wchar_t* name = list.GetItemImageName(i);
        const wchar_t* path = list.GetItemPathName(i);
        if (!name || !path) agreed = false;
        else (void)(std::wcslen(name) + std::wcslen(path));
        if (list.GetItemByPID(pid) != i) agreed = false;
        const int parent = list.GetItemByPID(list.GetItemParentPID(i));
        const int depth = list.GetItemParentCount(i, 0);
        if (depth > 0 && (parent < 0 || list.GetItemParentCount(parent, 0) != depth - 1)) agreed = false;
    }
    const bool oneSnapshot = list.GetUpdateCount() == before;
    consistent = agreed;
    return oneSnapshot;
}

unsigned OwnHandleCount(const kestrel::TL_PROCESSLIST& list) {
    return list.GetItemHandleCount(list.GetItemByPID(GetCurrentProcessId()));
}

}  // namespace

TEST_F(ProviderTest, ReadersOnAnotherThreadAlwaysSeeWholeSnapshots) {
    lmvx_test::ChildProcess child(L"spawn sleep 60000");   // some coming and going while we read
    list.Update();
    std::atomic<bool> done{false};
    std::thread writer([&] {
        for (int update = 0; update < 300; ++update) list.Update();
        done = true;
    });
    int wholeReads = 0;
    int inconsistentReads = 0;
    do {
        bool consistent = false;
        if (ReadConsistently(list, consistent)) {
            ++wholeReads;
            if (!consistent) ++inconsistentReads;
        }
    } while (!done);
    writer.join();
    bool consistent = false;
    ASSERT_TRUE(ReadConsistently(list, consistent));   // quiet now: this read is whole
    EXPECT_TRUE(consistent);
    EXPECT_GT(wholeReads, 0);
    EXPECT_EQ(inconsistentReads, 0);
}

TEST_F(ProviderTest, OwnHandleCountDoesNotGrowOverManyUpdates) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    // Warm up: the provider opens what it keeps (process handles, the icon cache) on first sight.
    for (int update = 0; update < 5; ++update) list.Update();
    const unsigned before = OwnHandleCount(list);
    ASSERT_GT(before, 0u);
    for (int update = 0; update < 200; ++update) list.Update();
    EXPECT_LE(OwnHandleCount(list), before);
}
