// The provider seen through processes the test starts: identity, tree, start data, counters, ending.
#include "child_process.h"
#include "provider_fixture.h"

#include <string>

using kestrel_test::ProviderTest;
using lmvx_test::ChildProcess;

namespace {

SYSTEMTIME LocalCreationTime(HANDLE process) {
    FILETIME creation{}, exit{}, kernel{}, user{}, local{};
    SYSTEMTIME time{};
    if (GetProcessTimes(process, &creation, &exit, &kernel, &user) && FileTimeToLocalFileTime(&creation, &local))
        FileTimeToSystemTime(&local, &time);
    return time;
}

// The process's private bytes as NtQueryInformationProcess(ProcessVmCounters) gives them; 0 on failure.
SIZE_T PrivateUsage(HANDLE process) {
    struct {
        SIZE_T PeakVirtualSize, VirtualSize;
        ULONG PageFaultCount;
        SIZE_T PeakWorkingSetSize, WorkingSetSize, QuotaPeakPagedPoolUsage, QuotaPagedPoolUsage;
        SIZE_T QuotaPeakNonPagedPoolUsage, QuotaNonPagedPoolUsage, PagefileUsage, PeakPagefileUsage, PrivateUsage;
    } counters{};
    using QueryFn = LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<QueryFn>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationProcess"));
    constexpr ULONG ProcessVmCounters = 3;
    return query && query(process, ProcessVmCounters, &counters, sizeof counters, nullptr) == 0 ? counters.PrivateUsage : 0;
}

}  // namespace

TEST_F(ProviderTest, AChildIsListedAsTheSystemSeesItUntilTheUpdateAfterItEnds) {
    ChildProcess child(L"sleep 60000 \"a quoted argument\"");
    ASSERT_TRUE(child.Started());
    // The child's commit may still move while it settles: take an update between two equal readings of it.
    SIZE_T privateBytes = 0;
    for (int attempt = 0; attempt < 50 && privateBytes == 0; ++attempt) {
        const SIZE_T before = PrivateUsage(child.Handle());
        list.Update();
        if (PrivateUsage(child.Handle()) == before) privateBytes = before;
        else Sleep(50);
    }
    ASSERT_GT(privateBytes, 0u) << "the child's private bytes never held still across an update";
    const int i = list.GetItemByPID(child.Pid());
    const int self = list.GetItemByPID(GetCurrentProcessId());
    ASSERT_GE(i, 0);
    ASSERT_GE(self, 0);
    EXPECT_EQ(list.GetItemDynamicData(i)->GetPrivateBytes(), privateBytes);
    EXPECT_EQ(list.GetItemPID(i), child.Pid());
    EXPECT_EQ(list.GetItemParentPID(i), GetCurrentProcessId());
    EXPECT_STREQ(list.GetItemImageName(i), L"lmvx_test_child.exe");
    EXPECT_EQ(_wcsicmp(list.GetItemPathName(i), ChildProcess::HelperPath().c_str()), 0) << list.GetItemPathName(i);
    kestrel_test::ExpectSameTime(list.GetItemCreationTime(i), LocalCreationTime(child.Handle()));

    const kestrel::_TASKDATASTATIC* statics = list.GetItemStaticData(i);
    ASSERT_NE(statics, nullptr);
    EXPECT_EQ(std::wstring(statics->GetCommandLineW()), child.CommandLine());
    wchar_t userName[256];
    DWORD length = ARRAYSIZE(userName);
    ASSERT_TRUE(GetUserNameW(userName, &length));
    const std::wstring owner = statics->GetUsername();
    const std::wstring suffix = std::wstring(L"\\") + userName;
    ASSERT_GE(owner.size(), suffix.size()) << owner;
    EXPECT_EQ(_wcsicmp(owner.substr(owner.size() - suffix.size()).c_str(), suffix.c_str()), 0) << owner;
    EXPECT_EQ(owner, std::wstring(list.GetItemStaticData(self)->GetUsername()));

    EXPECT_EQ(list.GetItemProcessPriority(i), GetPriorityClass(child.Handle()));
    ASSERT_TRUE(SetPriorityClass(child.Handle(), BELOW_NORMAL_PRIORITY_CLASS));
    list.Update();
    const int again = list.GetItemByPID(child.Pid());
    ASSERT_GE(again, 0);
    EXPECT_EQ(list.GetItemProcessPriority(again), static_cast<unsigned>(BELOW_NORMAL_PRIORITY_CLASS));

    child.End();
    ASSERT_FALSE(child.IsRunning());
    // Until the next update the snapshot still holds the ended process.
    EXPECT_EQ(list.GetItemByPID(child.Pid()), again);
    EXPECT_EQ(list.GetItemPID(again), child.Pid());
    EXPECT_STREQ(list.GetItemImageName(again), L"lmvx_test_child.exe");
    list.Update();
    EXPECT_EQ(list.GetItemByPID(child.Pid()), -1);
}

TEST_F(ProviderTest, AChildAndItsGrandchildFormABranchOfTheTree) {
    ChildProcess child(L"spawn sleep 60000");
    ASSERT_TRUE(child.Started());
    ASSERT_TRUE(UpdateUntil([&] { return FindChildOf(child.Pid()) >= 0; })) << "the grandchild never appeared";

    const int self = list.GetItemByPID(GetCurrentProcessId());
    const int parent = list.GetItemByPID(child.Pid());
    const int grandchild = FindChildOf(child.Pid());
    ASSERT_GE(self, 0);
    ASSERT_GE(parent, 0);
    EXPECT_EQ(list.GetItemParentPID(parent), GetCurrentProcessId());
    EXPECT_EQ(list.GetItemParentPID(grandchild), child.Pid());
    EXPECT_EQ(list.GetItemParentCount(parent, 0), list.GetItemParentCount(self, 0) + 1);
    EXPECT_EQ(list.GetItemParentCount(grandchild, 0), list.GetItemParentCount(parent, 0) + 1);
    // Depth first: the child's only child comes right after it, and both after this process.
    EXPECT_GT(list.GetItemTreePos(parent, 0), list.GetItemTreePos(self, 0));
    EXPECT_EQ(list.GetItemTreePos(grandchild, 0), list.GetItemTreePos(parent, 0) + 1);
}

TEST_F(ProviderTest, AChildThatBurnsCpuShowsUsage) {
    ChildProcess child(L"burn 60000");
    ASSERT_TRUE(child.Started());
    list.Update();   // the first sight of the child: nothing to compare with yet
    unsigned usage = 0;
    // Updates go on until the child has had a share of a core between two of them, however loaded the machine.
    for (int update = 0; update < 100 && usage == 0; ++update) {
        Sleep(500);
        list.Update();
        const int i = list.GetItemByPID(child.Pid());
        ASSERT_GE(i, 0);
        usage = list.GetItemCPUUsage(i);
    }
    EXPECT_GT(usage, 0u);
    EXPECT_LE(usage, 100u);
}
