// The library's process actions on real child processes: which threads count for "suspended" (and that
// asking changes no thread), pausing and resuming, the exit code of an ended process, a value that is no class.
#include <gtest/gtest.h>
#include <windows.h>
#include <tlhelp32.h>

#include <atomic>
#include <thread>
#include <vector>

#include "child_process.h"
#include "kestrel.h"
#include "message_pump.h"

namespace {

using lmvx_test::ChildProcess;

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

TEST(ProcessControl, SuspendedMeansEveryThreadSuspendedAndAskingChangesNoThread) {
    ChildProcess child(L"threads 3 600000");
    ASSERT_TRUE(child.Started());
    std::vector<HANDLE> threads;
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { CloseAll(threads); return (threads = OpenThreadsOf(child.Pid())).size() >= 4; },
                                     30000));
    ExpectCheckAnswersAndChangesNothing(child.Pid(), threads, 0);
    // Each thread in turn is the one left running, first and last included.
    for (size_t running = 0; running < threads.size(); ++running) {
        for (size_t i = 0; i < threads.size(); ++i) {
            if (i != running) {
                ASSERT_EQ(0u, SuspendThread(threads[i]));
            }
        }
        EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid())) << "thread " << running << " runs";
        for (size_t i = 0; i < threads.size(); ++i) {
            if (i != running) {
                EXPECT_EQ(1u, ResumeThread(threads[i]));
            }
        }
    }
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(child.Pid()));
    ExpectCheckAnswersAndChangesNothing(child.Pid(), threads, 1);
    ASSERT_TRUE(kestrel::PRM_ResumeProcess(child.Pid()));
    for (HANDLE thread : threads) EXPECT_EQ(SuspendCount(thread), 0u);
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    CloseAll(threads);
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(GetCurrentProcessId())) << "the calling process is never suspended";
}

// What the program's action tests cannot reach: a value that is no priority class, and the exit code.
TEST(ProcessControl, APriorityThatIsNoClassIsRefusedAndTerminateEndsWithItsExitCode) {
    ChildProcess child(L"sleep 600000");
    EXPECT_FALSE(kestrel::PRM_SetProcessPriority(child.Pid(), 12345));
    EXPECT_EQ(static_cast<DWORD>(NORMAL_PRIORITY_CLASS), GetPriorityClass(child.Handle()));
    ASSERT_TRUE(kestrel::PRM_TerminateProcess(child.Pid()));
    ASSERT_TRUE(child.WaitForExit(10000));
    DWORD exitCode = 0;
    GetExitCodeProcess(child.Handle(), &exitCode);
    EXPECT_EQ(kestrel::PRM_TerminatedExitCode, exitCode);
}

}  // namespace
