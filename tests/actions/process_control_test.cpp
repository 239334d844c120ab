// The library's process actions on real child processes.
#include "kestrel.h"

#include <gtest/gtest.h>

#include "child_process.h"

namespace {

using lmvx_test::ChildProcess;

TEST(ProcessControl, SuspendAndResumeAreCountedPerThread) {
    ChildProcess child(L"sleep 600000");
    ASSERT_TRUE(child.Started());
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(child.Pid()));
    EXPECT_TRUE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(child.Pid()));
    ASSERT_TRUE(kestrel::PRM_ResumeProcess(child.Pid()));
    EXPECT_TRUE(kestrel::PRM_IsProcessSuspended(child.Pid())) << "one suspension is left";
    ASSERT_TRUE(kestrel::PRM_ResumeProcess(child.Pid()));
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

TEST(ProcessControl, PriorityIsTheOneSet) {
    ChildProcess child(L"sleep 600000");
    for (DWORD priorityClass : {IDLE_PRIORITY_CLASS, HIGH_PRIORITY_CLASS, BELOW_NORMAL_PRIORITY_CLASS,
                                REALTIME_PRIORITY_CLASS, ABOVE_NORMAL_PRIORITY_CLASS, NORMAL_PRIORITY_CLASS}) {
        ASSERT_TRUE(kestrel::PRM_SetProcessPriority(child.Pid(), priorityClass));
        EXPECT_EQ(priorityClass, GetPriorityClass(child.Handle()));
    }
    EXPECT_FALSE(kestrel::PRM_SetProcessPriority(child.Pid(), 12345)) << "not a priority class";
}

TEST(ProcessControl, TrimmingTheWorkingSetOfALiveProcessSucceeds) {
    ChildProcess child(L"sleep 600000");
    EXPECT_TRUE(kestrel::PRM_SetProcessWorkingSetSize(child.Pid(), ~0ULL, ~0ULL));
}

TEST(ProcessControl, EveryActionFailsOnAnEndedProcess) {
    ChildProcess child(L"sleep 600000");
    child.End();   // its handle, still held, keeps the id from being reused
    EXPECT_FALSE(kestrel::PRM_TerminateProcess(child.Pid()));
    EXPECT_FALSE(kestrel::PRM_SuspendProcess(child.Pid()));
    EXPECT_FALSE(kestrel::PRM_ResumeProcess(child.Pid()));
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    EXPECT_FALSE(kestrel::PRM_SetProcessWorkingSetSize(child.Pid(), ~0ULL, ~0ULL));
    EXPECT_FALSE(kestrel::PRM_SetProcessPriority(child.Pid(), NORMAL_PRIORITY_CLASS));
}

TEST(ProcessControl, ResumeAllResumesSuspendedProcessesOnly) {
    ChildProcess paused(L"sleep 600000");
    ChildProcess running(L"sleep 600000");
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(paused.Pid()));
    EXPECT_TRUE(kestrel::PRM_ResumeAll());
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(paused.Pid()));
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(running.Pid()));
    EXPECT_TRUE(running.IsRunning());
}

}  // namespace
