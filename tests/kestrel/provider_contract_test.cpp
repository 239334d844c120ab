// What every reader may rely on: empty answers before Init, never a null string, pids that map back.
#include "provider_fixture.h"

#include <commctrl.h>

using kestrel_test::ProviderTest;

namespace {

void ExpectEmptyItem(const kestrel::TL_PROCESSLIST& list, int i) {
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

TEST(ProviderBeforeInit, AnswersEmptyEverywhere) {
    kestrel::TL_PROCESSLIST list;
    EXPECT_EQ(list.Update(), 0);
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_EQ(list.GetItemByPID(GetCurrentProcessId()), -1);
    EXPECT_EQ(list.GetImageList(), nullptr);
    EXPECT_EQ(list.GetUpdateCount(), 0u);
    ExpectEmptyItem(list, 0);
    EXPECT_EQ(list.Delete(), 0);
}

TEST(ProviderBeforeInit, AnswersEmptyAgainAfterDelete) {
    kestrel::TL_PROCESSLIST list;
    ASSERT_EQ(list.Init(), 1);
    ASSERT_EQ(list.Update(), 1);
    ASSERT_GT(list.GetItemCount(), 0);
    EXPECT_EQ(list.Delete(), 1);
    EXPECT_EQ(list.GetItemCount(), 0);
    ExpectEmptyItem(list, 0);
}

TEST_F(ProviderTest, IndexesOutsideTheSnapshotAnswerEmpty) {
    list.Update();
    ExpectEmptyItem(list, -1);
    ExpectEmptyItem(list, list.GetItemCount());
}

TEST_F(ProviderTest, EveryPidMapsBackToItsIndex) {
    list.Update();
    ASSERT_GT(list.GetItemCount(), 0);
    for (int i = 0; i < list.GetItemCount(); ++i) EXPECT_EQ(list.GetItemByPID(list.GetItemPID(i)), i);
    EXPECT_GE(list.GetItemByPID(GetCurrentProcessId()), 0);
}

TEST_F(ProviderTest, NoStringIsNullAndEveryRecordAndIconExistsForEveryProcess) {
    list.Update();
    list.Update();
    ASSERT_NE(list.GetImageList(), nullptr);
    const int icons = ImageList_GetImageCount(list.GetImageList());
    for (int i = 0; i < list.GetItemCount(); ++i) {
        SCOPED_TRACE(list.GetItemPID(i));
        EXPECT_NE(list.GetItemImageName(i), nullptr);
        EXPECT_NE(list.GetItemDisplayName(i), nullptr);
        EXPECT_NE(list.GetItemPathName(i), nullptr);
        EXPECT_NE(list.GetItemInfoDescription(i), nullptr);
        EXPECT_NE(list.GetItemInfoCompanyName(i), nullptr);
        EXPECT_NE(list.GetItemInfoProductName(i), nullptr);
        EXPECT_NE(list.GetItemInfoFileVersion(i), nullptr);
        EXPECT_NE(list.GetItemInfoCopyright(i), nullptr);
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
        EXPECT_GT(wcslen(list.GetItemDisplayName(i)), 0u);
    }
}

TEST_F(ProviderTest, OwnCountersAreThoseOfTheSystem) {
    list.Update();
    const int self = list.GetItemByPID(GetCurrentProcessId());
    ASSERT_GE(self, 0);
    EXPECT_GT(list.GetItemHandleCount(self), 0u);
    EXPECT_GT(list.GetItemRAMUsage(self), 0u);
    EXPECT_EQ(list.GetItemProcessPriority(self), GetPriorityClass(GetCurrentProcess()));
    const kestrel::_TASKDATADYNAMIC* dynamic = list.GetItemDynamicData(self);
    ASSERT_NE(dynamic, nullptr);
    EXPECT_EQ(dynamic->GetPhysicalMemoryBytes(), list.GetItemRAMUsage(self));
    EXPECT_GE(dynamic->GetPhysicalMemoryPeak(), dynamic->GetPhysicalMemoryBytes());
    EXPECT_GT(dynamic->GetPrivateBytes(), 0u);
    EXPECT_EQ(dynamic->GetTotalMemoryBytes(), dynamic->GetPhysicalMemoryBytes() + dynamic->GetPagefileBytes());
    // The provider's GDI count and the record's are one figure.
    EXPECT_EQ(dynamic->GetGDIObjectCount(), list.GetItemGDIObjectCount(self));
}

TEST_F(ProviderTest, RunTimeAndCpuTimeArePackedDurations) {
    list.Update();
    const int self = list.GetItemByPID(GetCurrentProcessId());
    ASSERT_GE(self, 0);
    const SYSTEMTIME runTime = list.GetItemRuntime(self);
    EXPECT_EQ(runTime.wYear, 0);
    EXPECT_EQ(runTime.wMonth, 0);
    EXPECT_LT(runTime.wHour, 24);
    EXPECT_LT(runTime.wMinute, 60);
    const SYSTEMTIME cpuTime = list.GetItemDynamicData(self)->GetCPUTime();
    EXPECT_EQ(cpuTime.wYear, 0);
    EXPECT_LT(cpuTime.wSecond, 60);
}
