// Asking whether a process is paused must not change it: while the check runs over and over on another
// thread, every thread of the watched child keeps the suspend count the test gave it.
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

using QueryThreadFn = LONG(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);

std::vector<HANDLE> OpenThreadsOf(DWORD pid) {
    std::vector<HANDLE> threads;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{sizeof entry};
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID == pid) threads.push_back(OpenThread(THREAD_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ThreadID));
    }
    CloseHandle(snapshot);
    return threads;
}

TEST(SuspensionCheck, LeavesEveryThreadsSuspendCountAsItWas) {
    const auto query = reinterpret_cast<QueryThreadFn>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationThread")));
    lmvx_test::ChildProcess child(L"threads 4 60000");
    ASSERT_TRUE(child.Started());
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return OpenThreadsOf(child.Pid()).size() >= 5; }, 30000));
    const std::vector<HANDLE> threads = OpenThreadsOf(child.Pid());   // handles kept to the end of the process

    for (const ULONG given : {0UL, 1UL}) {
        if (given == 1) {
            ASSERT_NE(kestrel::PRM_SuspendProcess(child.Pid()), 0);
        }
        std::atomic<bool> checking{true};
        std::atomic<int> wrongAnswers{0};
        std::thread checker([&] {
            for (int i = 0; i < 300; ++i) wrongAnswers += kestrel::PRM_IsProcessSuspended(child.Pid()) != static_cast<int>(given);
            checking = false;
        });
        int changedCounts = 0;
        do {
            for (HANDLE thread : threads) {
                ULONG count = ~0UL;
                query(thread, 35 /* ThreadSuspendCount */, &count, sizeof count, nullptr);
                changedCounts += count != given;
            }
        } while (checking);
        checker.join();
        EXPECT_EQ(wrongAnswers, 0) << "suspend count " << given;
        EXPECT_EQ(changedCounts, 0) << "suspend count " << given;
    }
}

}  // namespace
