// What every reader may rely on: empty answers before Init and after Delete, never a null string, pids that
// map back, this process's own counters as the system gives them.
#include "provider_fixture.h"

#include <commctrl.h>

using kestrel_test::ProviderTest;

namespace {

void ExpectEmptyItem(const kestrel::TL_PROCESSLIST& list, int i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(list.GetItemPID(i), 0u);
    EXPECT_EQ(list.GetItemCPUUsage(i), 0u);
    EXPECT_EQ(list.GetItemImageListIndex(i), -1);
    EXPECT_STREQ(list.GetItemImageName(i), L"");
    EXPECT_STREQ(list.GetItemPathName(i), L"");
    EXPECT_STREQ(list.GetItemInfoDescription(i), L"");
    EXPECT_EQ(list.GetItemIcon(i), nullptr);
    EXPECT_EQ(list.GetItemDynamicData(i), nullptr);
    EXPECT_EQ(list.GetItemStaticData(i), nullptr);
    EXPECT_EQ(list.GetItemCreationTime(i).wYear, 0);
}

}  // namespace

TEST(ProviderBeforeInit, AnswersEmptyEverywhereAndAgainAfterDelete) {
    kestrel::TL_PROCESSLIST list;
    EXPECT_EQ(list.Update(), 0);
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_EQ(list.GetItemByPID(GetCurrentProcessId()), -1);
    EXPECT_EQ(list.GetImageList(), nullptr);
    EXPECT_EQ(list.GetUpdateCount(), 0u);
    ExpectEmptyItem(list, 0);
    EXPECT_EQ(list.Delete(), 0);

    ASSERT_EQ(list.Init(), 1);
    ASSERT_EQ(list.Update(), 1);
    ASSERT_GT(list.GetItemCount(), 0);
    EXPECT_EQ(list.Delete(), 1);
    EXPECT_EQ(list.GetItemCount(), 0);
    ExpectEmptyItem(list, 0);
}

TEST_F(ProviderTest, EveryRecordIsWholeAndThisProcesssCountersAreThoseOfTheSystem) {
    list.Update();
    list.Update();
    ExpectEmptyItem(list, -1);
    ExpectEmptyItem(list, list.GetItemCount());
    ASSERT_GT(list.GetItemCount(), 0);
    ASSERT_NE(list.GetImageList(), nullptr);
    const int icons = ImageList_GetImageCount(list.GetImageList());
    for (int i = 0; i < list.GetItemCount(); ++i) {
        SCOPED_TRACE(list.GetItemPID(i));
        EXPECT_EQ(list.GetItemByPID(list.GetItemPID(i)), i);
        for (const wchar_t* text : {list.GetItemImageName(i), list.GetItemPathName(i), list.GetItemInfoDescription(i),
                                    list.GetItemInfoCompanyName(i), list.GetItemInfoProductName(i),
                                    list.GetItemInfoFileVersion(i), list.GetItemInfoCopyright(i)})
            EXPECT_NE(text, nullptr);
        ASSERT_NE(list.GetItemDisplayName(i), nullptr);
        EXPECT_GT(wcslen(list.GetItemDisplayName(i)), 0u);
        EXPECT_NE(list.GetItemIcon(i), nullptr);
        EXPECT_NE(list.GetItemIconSmall(i), nullptr);
        EXPECT_GE(list.GetItemImageListIndex(i), 0);
        EXPECT_LT(list.GetItemImageListIndex(i), icons);
        EXPECT_LE(list.GetItemCPUUsage(i), 100u);
        const kestrel::_TASKDATASTATIC* statics = list.GetItemStaticData(i);
        ASSERT_NE(statics, nullptr);
        EXPECT_NE(statics->GetUsername(), nullptr);
        EXPECT_NE(statics->GetCommandLineW(), nullptr);
        ASSERT_NE(list.GetItemDynamicData(i), nullptr);
    }

    const int self = list.GetItemByPID(GetCurrentProcessId());
    ASSERT_GE(self, 0);
    EXPECT_GT(list.GetItemHandleCount(self), 0u);
    EXPECT_GT(list.GetItemRAMUsage(self), 0u);
    EXPECT_EQ(list.GetItemProcessPriority(self), GetPriorityClass(GetCurrentProcess()));
    const kestrel::_TASKDATADYNAMIC* dynamic = list.GetItemDynamicData(self);
    EXPECT_EQ(dynamic->GetPhysicalMemoryBytes(), list.GetItemRAMUsage(self));
    EXPECT_GE(dynamic->GetPhysicalMemoryPeak(), dynamic->GetPhysicalMemoryBytes());
    EXPECT_GT(dynamic->GetPrivateBytes(), 0u);
    EXPECT_EQ(dynamic->GetTotalMemoryBytes(), dynamic->GetPhysicalMemoryBytes() + dynamic->GetPagefileBytes());
    EXPECT_EQ(dynamic->GetGDIObjectCount(), list.GetItemGDIObjectCount(self));
    // Run time and CPU time are packed durations: no year or month, hours below a day.
    const SYSTEMTIME runTime = list.GetItemRuntime(self), cpuTime = dynamic->GetCPUTime();
    EXPECT_EQ(runTime.wYear + runTime.wMonth + cpuTime.wYear, 0);
    EXPECT_LT(runTime.wHour, 24);
    EXPECT_LT(runTime.wMinute, 60);
    EXPECT_LT(cpuTime.wSecond, 60);
}
