// Asking whether a process is suspended must not change it: while the check runs over and over on one
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
constexpr ULONG kThreadSuspendCount = 35;

std::vector<HANDLE> OpenThreadsOf(DWORD pid) {
    std::vector<HANDLE> threads;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return threads;
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID != pid) continue;
        if (HANDLE thread = OpenThread(THREAD_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ThreadID)) {
            threads.push_back(thread);
        }
    }
    CloseHandle(snapshot);
    return threads;
}

TEST(SuspensionCheck, LeavesEveryThreadsSuspendCountAsItWas) {
    const auto query = reinterpret_cast<QueryThreadFn>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationThread")));
    ASSERT_NE(query, nullptr);
    lmvx_test::ChildProcess child(L"threads 4 60000");
    ASSERT_TRUE(child.Started());
    std::vector<HANDLE> threads;
    ASSERT_TRUE(lmvx_test::PumpUntil(
        [&] {
            for (HANDLE thread : threads) CloseHandle(thread);
            threads = OpenThreadsOf(child.Pid());
            return threads.size() >= 5;
        },
        30000));
    const auto countOf = [&](HANDLE thread) {
        ULONG count = 0;
        return query(thread, kThreadSuspendCount, &count, sizeof count, nullptr) >= 0 ? count : ~0UL;
    };

    for (const ULONG given : {0UL, 1UL}) {
        if (given == 1) ASSERT_NE(kestrel::PRM_SuspendProcess(child.Pid()), 0);
        std::atomic<bool> checking{true};
        std::atomic<int> wrongAnswers{0};
        std::thread checker([&] {
            for (int i = 0; i < 300; ++i) {
                if (kestrel::PRM_IsProcessSuspended(child.Pid()) != static_cast<int>(given)) ++wrongAnswers;
            }
            checking = false;
        });
        int reads = 0;
        int changedCounts = 0;
        do {
            for (HANDLE thread : threads) {
                ++reads;
                if (countOf(thread) != given) ++changedCounts;
            }
        } while (checking);
        checker.join();
        EXPECT_EQ(wrongAnswers, 0) << "suspend count " << given;
        EXPECT_EQ(changedCounts, 0) << "of " << reads << " reads with suspend count " << given;
    }
    for (HANDLE thread : threads) CloseHandle(thread);
}

}  // namespace
