// The library's process actions on real child processes, where the program's action tests (with their
// dialogs) cannot look: which threads count for "suspended", the exit code, a value that is no class.
#include "kestrel.h"

#include <gtest/gtest.h>
#include <tlhelp32.h>

#include <vector>

#include "child_process.h"

namespace {

using lmvx_test::ChildProcess;

// The threads of a process, in the order the system lists them.
std::vector<HANDLE> OpenThreadsOf(DWORD pid) {
    std::vector<HANDLE> threads;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID == pid) threads.push_back(OpenThread(THREAD_SUSPEND_RESUME, FALSE, entry.th32ThreadID));
    }
    CloseHandle(snapshot);
    return threads;
}

TEST(ProcessControl, AProcessWithOneRunningThreadIsNotSuspended) {
    ChildProcess child(L"threads 3 600000");
    ASSERT_TRUE(child.Started());
    std::vector<HANDLE> threads;
    for (int attempt = 0; attempt < 100 && threads.size() < 4; ++attempt) {
        for (HANDLE thread : threads) CloseHandle(thread);
        Sleep(20);
        threads = OpenThreadsOf(child.Pid());
    }
    ASSERT_GE(threads.size(), 4u);
    // Each thread in turn is the one left running, first and last included.
    for (size_t running = 0; running < threads.size(); ++running) {
        for (size_t i = 0; i < threads.size(); ++i) {
            if (i != running) ASSERT_EQ(0u, SuspendThread(threads[i]));
        }
        EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid())) << "thread " << running << " runs";
        // The check leaves every count as it found it: one resume each lets the threads run again.
        for (size_t i = 0; i < threads.size(); ++i) {
            if (i != running) EXPECT_EQ(1u, ResumeThread(threads[i]));
        }
    }
    for (HANDLE thread : threads) SuspendThread(thread);
    EXPECT_TRUE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    for (HANDLE thread : threads) {
        EXPECT_EQ(1u, ResumeThread(thread));
        CloseHandle(thread);
    }
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid()));
}

TEST(ProcessControl, ASuspendedProcessDoesNotFinishItsWork) {
    ChildProcess child(L"sleep 300");
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(child.Pid()));
    EXPECT_FALSE(child.WaitForExit(1500));
    ASSERT_TRUE(kestrel::PRM_ResumeProcess(child.Pid()));
    EXPECT_TRUE(child.WaitForExit(10000));
}

TEST(ProcessControl, TheCallingProcessIsNeverSuspended) {
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(GetCurrentProcessId()));
}

TEST(ProcessControl, TerminateEndsTheProcessWithItsExitCode) {
    ChildProcess child(L"sleep 600000");
    ASSERT_TRUE(kestrel::PRM_TerminateProcess(child.Pid()));
    ASSERT_TRUE(child.WaitForExit(10000));
    DWORD exitCode = 0;
    GetExitCodeProcess(child.Handle(), &exitCode);
    EXPECT_EQ(kestrel::PRM_TerminatedExitCode, exitCode);
}

// What the program's action tests cannot reach: a value that is no priority class.
TEST(ProcessControl, APriorityValueThatIsNoClassIsRefused) {
    ChildProcess child(L"sleep 600000");
    EXPECT_FALSE(kestrel::PRM_SetProcessPriority(child.Pid(), 12345));
    EXPECT_EQ(static_cast<DWORD>(NORMAL_PRIORITY_CLASS), GetPriorityClass(child.Handle()));
}

}  // namespace
