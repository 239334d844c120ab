// The thread list and the thread actions against a child with known threads.
#include "kestrel.h"

#include <gtest/gtest.h>

#include <string>

#include "known_threads.h"
#include "message_pump.h"

namespace {

using lmvx_test::KnownThreads;
using lmvx_test::PumpUntil;

// One child for both tests, started on first use.
const KnownThreads& Threads() {
    static const KnownThreads threads = KnownThreads::Start();
    return threads;
}

TEST(ThreadList, ListsEveryThreadWithItsUsageModuleAndLastErrorAndNoneOfOthers) {
    ASSERT_TRUE(Threads().Started());
    kestrel::PD_THREADLIST list;
    ASSERT_TRUE(list.QueryThreadList(Threads().child->Pid()));
    for (DWORD threadId : {Threads().burning, Threads().suspended, Threads().blocked, Threads().windowed}) {
        EXPECT_NE(nullptr, list.FindThread(threadId)) << threadId;
    }
    EXPECT_GE(list.GetThreadCount(), 5u);
    EXPECT_TRUE(PumpUntil([&] {
        list.QueryThreadList(Threads().child->Pid());
        return list.FindThread(Threads().burning) && list.FindThread(Threads().burning)->GetCPUUsage() > 0;
    }, 20000));
    const kestrel::PD_THREADENTRY* burning = list.FindThread(Threads().burning);
    ASSERT_NE(nullptr, burning);
    EXPECT_GT(burning->GetAverageCPUUsage(), 0.0);
    const SYSTEMTIME cpu = burning->GetCPUSystemTime();
    EXPECT_EQ(1, cpu.wDay) << "less than a day of CPU shows as day 1";
    EXPECT_NE(0, cpu.wYear) << "creation time is known";

    // The blocked thread starts in the child and keeps its last error.
    const kestrel::PD_THREADENTRY* blocked = list.FindThread(Threads().blocked);
    ASSERT_NE(nullptr, blocked);
    EXPECT_STREQ(L"lmvx_test_child.exe", blocked->GetModuleName());
    EXPECT_GT(blocked->GetStartAddress(), static_cast<ULONG_PTR>(blocked->GetModuleBaseAddress()));
    EXPECT_EQ(static_cast<unsigned>(ERROR_FILE_NOT_FOUND), blocked->GetThreadLastError());
    EXPECT_EQ(0, blocked->GetPriority());
    EXPECT_EQ(nullptr, list.FindThread(GetCurrentThreadId())) << "only the child's threads";

    // The calling thread is refused; a process that is not running has no threads.
    EXPECT_FALSE(kestrel::PRM_SuspendThread(GetCurrentThreadId()));
    EXPECT_FALSE(kestrel::PRM_TerminateThread(GetCurrentThreadId()));
    EXPECT_FALSE(kestrel::PRM_IsThreadSuspended(GetCurrentThreadId()));
    EXPECT_FALSE(list.QueryThreadList(0xFFFFFFF0u));
    EXPECT_EQ(0u, list.GetThreadCount());
    EXPECT_EQ(nullptr, list.GetThread(0));
}

TEST(ThreadList, TheBlockedThreadsStackHoldsTheChildsFramesAndTheThreadRunsOn) {
    ASSERT_TRUE(Threads().Started());
    HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, Threads().child->Pid());
    HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT | THREAD_QUERY_INFORMATION, FALSE,
                               Threads().blocked);
    ASSERT_TRUE(process && thread);
    kestrel::_SI_STACKDUMP stack;
    ASSERT_TRUE(stack.CreateStackDump(process, thread, nullptr));
    bool childFrame = false, knownFunction = false;
    bool systemExport = false;   // a frame of the system's modules, named from their exports
    for (unsigned i = 0; i < stack.frameCount; ++i) {
        const kestrel::_SI_STACKFRAME frame = stack.GetFrame(i);
        childFrame |= std::wstring(frame.modulePath).find(L"lmvx_test_child.exe") != std::wstring::npos;
        knownFunction |= std::wstring(frame.callText).find(L"BlockedInChildWait") != std::wstring::npos;
        systemExport |= std::wstring(frame.callText).find(L"kernel32.dll!BaseThreadInitThunk+0x") == 0;
    }
    EXPECT_TRUE(childFrame);
    EXPECT_TRUE(knownFunction);
    EXPECT_TRUE(systemExport);
    EXPECT_FALSE(kestrel::PRM_IsThreadSuspended(Threads().blocked)) << "resumed after the walk";
    EXPECT_FALSE(stack.CreateStackDump(GetCurrentProcess(), GetCurrentThread(), nullptr)) << "not the calling thread";
    CloseHandle(thread);
    CloseHandle(process);

    // A thread that ends after it was opened, before the walk holds it, gives no stack and no hang.
    HANDLE ended = CreateThread(nullptr, 0, [](void*) -> DWORD { return 0; }, nullptr, 0, nullptr);
    ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(ended, 10000));
    EXPECT_FALSE(stack.CreateStackDump(GetCurrentProcess(), ended, nullptr));
    EXPECT_EQ(0u, stack.frameCount);
    CloseHandle(ended);
}

}  // namespace
