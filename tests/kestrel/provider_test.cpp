// The provider and the process actions against real processes: every record, children this test starts (identity,
// tree, start data, counters, suspension, priority, ending), readers under a refresh loop, version data.
#include <gtest/gtest.h>
#include <windows.h>
#include <commctrl.h>
#include <tlhelp32.h>

#include <atomic>
#include <cwchar>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "child_process.h"
#include "kestrel.h"
#include "message_pump.h"

using lmvx_test::ChildProcess;
using lmvx_test::PollUntil;

namespace {

class ProviderTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(list.Init(), 1); }
    void TearDown() override { list.Delete(); }
    kestrel::TL_PROCESSLIST list;
};

// Date and time of day to the millisecond (the day of the week is not compared).
auto DateAndTime(const SYSTEMTIME& t) { return std::tie(t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds); }

void ExpectEmptyItem(const kestrel::TL_PROCESSLIST& list, int i) {
    EXPECT_EQ(std::make_tuple(list.GetItemPID(i), list.GetItemCPUUsage(i), list.GetItemImageListIndex(i),
                              list.GetItemCreationTime(i).wYear),
              std::make_tuple(0u, 0u, -1, WORD{0})) << i;
    EXPECT_EQ(std::make_tuple(std::wstring(list.GetItemImageName(i)), std::wstring(list.GetItemPathName(i)),
                              std::wstring(list.GetItemInfoDescription(i))), std::make_tuple(L"", L"", L"")) << i;
    EXPECT_TRUE(!list.GetItemIcon(i) && !list.GetItemDynamicData(i) && !list.GetItemStaticData(i)) << i;
}

// Before Init and after Delete every answer is empty; in between every record is whole, and this process's
// counters are those of the system.
TEST(Provider, EveryRecordIsWholeBetweenInitAndDeleteAndThisProcesssCountersAreThoseOfTheSystem) {
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
    ASSERT_EQ(list.Update(), 1);
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
    EXPECT_EQ(list.Delete(), 1);
    EXPECT_EQ(list.GetItemCount(), 0);
    ExpectEmptyItem(list, 0);
}

SYSTEMTIME LocalCreationTime(HANDLE process) {
    FILETIME creation{}, exit{}, kernel{}, user{}, local{};
    SYSTEMTIME time{};
    if (GetProcessTimes(process, &creation, &exit, &kernel, &user) && FileTimeToLocalFileTime(&creation, &local))
        FileTimeToSystemTime(&local, &time);
    return time;
}

// The process's private bytes as NtQueryInformationProcess(ProcessVmCounters) gives them: on 64-bit Windows the
// counters are twelve words, the page fault count padded to one, and the private bytes are the last; 0 on failure.
SIZE_T PrivateUsage(HANDLE process) {
    SIZE_T counters[12] = {};
    using QueryFn = LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<QueryFn>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationProcess"));
    return query && query(process, 3 /* ProcessVmCounters */, counters, sizeof counters, nullptr) == 0 ? counters[11] : 0;
}

// The child's only child burns a processor: it sits right below the child in the tree and shows CPU usage.
TEST_F(ProviderTest, ABurningGrandchildFormsABranchOfTheTreeAndShowsUsage) {
    ChildProcess child(L"spawn burn 60000");
    ASSERT_TRUE(child.Started());
    int grandchild = -1;
    // Processes started by an ended process whose PID the child now has (Wine reuses PIDs at once) name it as
    // their parent too; the grandchild is the one running the test child's image.
    ASSERT_TRUE(PollUntil([&] {
        list.Update();
        for (grandchild = list.GetItemCount() - 1; grandchild >= 0; --grandchild)
            if (list.GetItemParentPID(grandchild) == child.Pid() &&
                _wcsicmp(list.GetItemImageName(grandchild), L"lmvx_test_child.exe") == 0) break;
        return grandchild >= 0;
    })) << "the grandchild never appeared";
    const unsigned grandchildPid = list.GetItemPID(grandchild);
    const int self = list.GetItemByPID(GetCurrentProcessId());
    const int parent = list.GetItemByPID(child.Pid());
    ASSERT_GE(self, 0);
    ASSERT_GE(parent, 0);
    EXPECT_EQ(list.GetItemParentPID(parent), GetCurrentProcessId());
    EXPECT_EQ(list.GetItemParentCount(parent, 0), list.GetItemParentCount(self, 0) + 1);
    EXPECT_EQ(list.GetItemParentCount(grandchild, 0), list.GetItemParentCount(parent, 0) + 1);
    // Depth first: the child's only child comes right after it, and both after this process.
    EXPECT_GT(list.GetItemTreePos(parent, 0), list.GetItemTreePos(self, 0));
    EXPECT_EQ(list.GetItemTreePos(grandchild, 0), list.GetItemTreePos(parent, 0) + 1);

    // Updates go on until the grandchild has had a share of a core between two of them, however loaded the machine.
    unsigned usage = 0;
    EXPECT_TRUE(PollUntil([&] {
        Sleep(200);   // a measurable interval between two updates, not a wait for an outcome
        list.Update();
        const int i = list.GetItemByPID(grandchildPid);
        return i >= 0 && (usage = list.GetItemCPUUsage(i)) > 0;
    }, 60000));
    EXPECT_LE(usage, 100u);
}

// Reads the whole snapshot once; true when it was one snapshot throughout (no switch during the read) and
// everything in it agreed: every pid maps back to its index, and every child sits one level below its parent.
bool ReadConsistently(const kestrel::TL_PROCESSLIST& list, bool& consistent) {
    const unsigned before = list.GetUpdateCount();
    consistent = true;
    for (int i = 0; i < list.GetItemCount(); ++i) {
        // Strings are read at once: they are only promised until the next update.
        const wchar_t* name = list.GetItemImageName(i);
        const wchar_t* path = list.GetItemPathName(i);
        if (!name || !path) consistent = false;
        else (void)(std::wcslen(name) + std::wcslen(path));
        if (list.GetItemByPID(list.GetItemPID(i)) != i) consistent = false;
        const int parent = list.GetItemByPID(list.GetItemParentPID(i));
        const int depth = list.GetItemParentCount(i, 0);
        if (depth > 0 && (parent < 0 || list.GetItemParentCount(parent, 0) != depth - 1)) consistent = false;
    }
    return list.GetUpdateCount() == before;
}

// Readers on another thread always see whole snapshots, and the provider leaks no handle per update.
TEST_F(ProviderTest, ReadersSeeWholeSnapshotsWhileUpdatesRunAndTheHandleCountHolds) {
    ChildProcess child(L"spawn sleep 60000");   // some coming and going while we read
    // Warm up: the provider opens what it keeps (process handles, the icon cache) on first sight.
    for (int update = 0; update < 5; ++update) list.Update();
    const unsigned handlesBefore = list.GetItemHandleCount(list.GetItemByPID(GetCurrentProcessId()));
    ASSERT_GT(handlesBefore, 0u);
    std::atomic<bool> done{false};
    std::thread writer([&] {
        for (int update = 0; update < 300; ++update) list.Update();
        done = true;
    });
    int wholeReads = 0, inconsistentReads = 0;
    do {
        bool consistent = false;
        if (ReadConsistently(list, consistent)) {
            ++wholeReads;
            inconsistentReads += !consistent;
        }
    } while (!done);
    writer.join();
    bool consistent = false;
    ASSERT_TRUE(ReadConsistently(list, consistent));   // quiet now: this read is whole
    EXPECT_TRUE(consistent);
    EXPECT_GT(wholeReads, 0);
    EXPECT_EQ(inconsistentReads, 0);
    // Wine reports the size of the handle table, which doubles when a passing handle fills it; a leak of one
    // handle per update (300) grows any count below 300 to more than twice its size.
    EXPECT_LE(list.GetItemHandleCount(list.GetItemByPID(GetCurrentProcessId())), 2 * handlesBefore);
}

// A system library's version resource, the buffer forms that cut and terminate, and a file without version
// data (this test program): empty texts, its file name, and its link time as the time stamp.
TEST(ImageInfo, ReadsVersionResourcesAndFallsBackToTheFileNameAndLinkTime) {
    wchar_t directory[MAX_PATH];
    const std::wstring kernel32 = std::wstring(directory, GetSystemDirectoryW(directory, MAX_PATH)) + L"\\kernel32.dll";
    kestrel::_IMAGEINFO info;
    EXPECT_STREQ(info.GetDisplayName(), L"") << "before any file is read";
    EXPECT_EQ(info.GetVersionHigh(), 0u);
    ASSERT_NE(info.LoadVersionInfo(kernel32.c_str()), 0);
    EXPECT_GT(wcslen(info.GetDisplayName()), 0u);
    EXPECT_NE(info.GetVersionHigh() | info.GetVersionLow(), 0u);
    wchar_t version[64];
    EXPECT_EQ(info.GetFileVersion(version, ARRAYSIZE(version)), version);
    EXPECT_GT(wcslen(version), 0u);
    const std::wstring product = info.GetProductName();
    ASSERT_GE(product.size(), 2u);
    wchar_t cut[3] = {L'x', L'x', L'x'};
    info.GetProductName(cut, ARRAYSIZE(cut));
    EXPECT_EQ(std::wstring(cut), product.substr(0, 2));
    wchar_t whole[256];
    EXPECT_EQ(std::wstring(info.GetProductName(whole, ARRAYSIZE(whole))), product);

    const auto* base = reinterpret_cast<const BYTE*>(GetModuleHandleW(nullptr));
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const ULONGLONG ticks = 116444736000000000ULL + headers->FileHeader.TimeDateStamp * 10000000ULL;
    FILETIME linkTime{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME expected{};
    ASSERT_TRUE(FileTimeToSystemTime(&linkTime, &expected));
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    kestrel::_IMAGEINFO plain;
    EXPECT_EQ(plain.LoadVersionInfo(path), 0);
    EXPECT_STREQ(plain.GetDisplayName(), L"kestrel_provider_tests.exe");
    EXPECT_STREQ(plain.GetCompanyName(), L"");
    EXPECT_STREQ(plain.GetProductName(), L"");
    wchar_t copyright[16] = L"unchanged";
    EXPECT_STREQ(plain.GetCopyright(copyright, ARRAYSIZE(copyright)), L"");
    EXPECT_EQ(DateAndTime(plain.GetTimeStamp()), DateAndTime(expected));

    kestrel::_IMAGEINFO missing;
    EXPECT_EQ(missing.LoadVersionInfo(L"C:\\no such folder\\no such file.exe"), 0);
    EXPECT_STREQ(missing.GetCompanyName(), L"");
    EXPECT_EQ(missing.GetTimeStamp().wYear, 0);
}

// Handles to the threads of a process, in the order the system lists them.
std::vector<HANDLE> OpenThreadsOf(DWORD pid) {
    std::vector<HANDLE> threads;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{sizeof entry};
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID == pid)
            threads.push_back(OpenThread(THREAD_SUSPEND_RESUME | THREAD_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ThreadID));
    }
    CloseHandle(snapshot);
    return threads;
}

void CloseAll(const std::vector<HANDLE>& threads) {
    for (HANDLE thread : threads) CloseHandle(thread);
}

ULONG SuspendCount(HANDLE thread) {
    using QueryThreadFn = LONG(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
    static const auto query = reinterpret_cast<QueryThreadFn>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationThread")));
    ULONG count = ~0UL;
    query(thread, 35 /* ThreadSuspendCount */, &count, sizeof count, nullptr);
    return count;
}

// While the check runs over and over on another thread, it answers by `given` and every thread of the
// process keeps `given` as its suspend count.
void ExpectCheckAnswersAndChangesNothing(DWORD pid, const std::vector<HANDLE>& threads, ULONG given) {
    std::atomic<bool> checking{true};
    std::atomic<int> wrongAnswers{0};
    std::thread checker([&] {
        for (int i = 0; i < 300; ++i) wrongAnswers += kestrel::PRM_IsProcessSuspended(pid) != static_cast<int>(given);
        checking = false;
    });
    int changedCounts = 0;
    do {
        for (HANDLE thread : threads) changedCounts += SuspendCount(thread) != given;
    } while (checking);
    checker.join();
    EXPECT_EQ(wrongAnswers, 0) << "suspend count " << given;
    EXPECT_EQ(changedCounts, 0) << "suspend count " << given;
}

// A child is listed as the system sees it until the update after it ends. Suspended means every thread suspended,
// and asking changes no thread. A value that is no priority class is refused; terminating sets the exit code.
TEST_F(ProviderTest, AChildIsListedAsTheSystemSeesItAndSuspendedMeansEveryThreadUntilItIsTerminated) {
    ChildProcess child(L"threads 3 600000 \"a quoted argument\"");
    ASSERT_TRUE(child.Started());
    // The child's commit may still move while it settles: take an update between two equal readings of it.
    SIZE_T privateBytes = 0;
    ASSERT_TRUE(PollUntil([&] {
        const SIZE_T before = PrivateUsage(child.Handle());
        list.Update();
        return before > 0 && PrivateUsage(child.Handle()) == (privateBytes = before);
    })) << "the child's private bytes never held still across an update";
    const int i = list.GetItemByPID(child.Pid());
    const int self = list.GetItemByPID(GetCurrentProcessId());
    ASSERT_GE(i, 0);
    ASSERT_GE(self, 0);
    EXPECT_EQ(list.GetItemDynamicData(i)->GetPrivateBytes(), privateBytes);
    EXPECT_EQ(list.GetItemParentPID(i), GetCurrentProcessId());
    EXPECT_STREQ(list.GetItemImageName(i), L"lmvx_test_child.exe");
    EXPECT_EQ(_wcsicmp(list.GetItemPathName(i), ChildProcess::HelperPath().c_str()), 0) << list.GetItemPathName(i);
    const SYSTEMTIME created = LocalCreationTime(child.Handle());
    EXPECT_EQ(DateAndTime(list.GetItemCreationTime(i)), DateAndTime(created));

    const kestrel::_TASKDATASTATIC* statics = list.GetItemStaticData(i);
    ASSERT_NE(statics, nullptr);
    EXPECT_EQ(std::wstring(statics->GetCommandLineW()), child.CommandLine());
    wchar_t userName[256];
    DWORD length = ARRAYSIZE(userName);
    ASSERT_TRUE(GetUserNameW(userName, &length));
    const std::wstring owner = statics->GetUsername(), suffix = std::wstring(L"\\") + userName;
    ASSERT_GE(owner.size(), suffix.size()) << owner;
    EXPECT_EQ(_wcsicmp(owner.substr(owner.size() - suffix.size()).c_str(), suffix.c_str()), 0) << owner;
    EXPECT_EQ(owner, std::wstring(list.GetItemStaticData(self)->GetUsername()));

    EXPECT_EQ(list.GetItemProcessPriority(i), GetPriorityClass(child.Handle()));
    ASSERT_TRUE(SetPriorityClass(child.Handle(), BELOW_NORMAL_PRIORITY_CLASS));
    list.Update();
    const int again = list.GetItemByPID(child.Pid());
    ASSERT_GE(again, 0);
    EXPECT_EQ(list.GetItemProcessPriority(again), static_cast<unsigned>(BELOW_NORMAL_PRIORITY_CLASS));

    std::vector<HANDLE> threads;
    ASSERT_TRUE(PollUntil([&] { CloseAll(threads); return (threads = OpenThreadsOf(child.Pid())).size() >= 4; }, 30000));
    ExpectCheckAnswersAndChangesNothing(child.Pid(), threads, 0);
    // Each thread in turn is the one left running, first and last included.
    for (size_t running = 0; running < threads.size(); ++running) {
        for (size_t t = 0; t < threads.size(); ++t) {
            if (t != running) {
                ASSERT_EQ(0u, SuspendThread(threads[t]));
            }
        }
        EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid())) << "thread " << running << " runs";
        for (size_t t = 0; t < threads.size(); ++t) {
            if (t != running) {
                EXPECT_EQ(1u, ResumeThread(threads[t]));
            }
        }
    }
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(child.Pid()));
    ExpectCheckAnswersAndChangesNothing(child.Pid(), threads, 1);
    ASSERT_TRUE(kestrel::PRM_ResumeProcess(child.Pid()));
    for (HANDLE thread : threads) EXPECT_EQ(SuspendCount(thread), 0u);
    CloseAll(threads);
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(GetCurrentProcessId())) << "the calling process is never suspended";

    EXPECT_FALSE(kestrel::PRM_SetProcessPriority(child.Pid(), 12345));
    EXPECT_EQ(static_cast<DWORD>(BELOW_NORMAL_PRIORITY_CLASS), GetPriorityClass(child.Handle()));
    ASSERT_TRUE(kestrel::PRM_TerminateProcess(child.Pid()));
    ASSERT_TRUE(child.WaitForExit(10000));
    // Until the next update the snapshot still holds the ended process.
    EXPECT_EQ(list.GetItemByPID(child.Pid()), again);
    EXPECT_STREQ(list.GetItemImageName(again), L"lmvx_test_child.exe");
    list.Update();
    EXPECT_EQ(list.GetItemByPID(child.Pid()), -1);
}

}  // namespace
