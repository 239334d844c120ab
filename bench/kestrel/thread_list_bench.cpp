// Measures PD_THREADLIST::QueryThreadList() on a process with 500 threads against one bare
// NtQuerySystemInformation (SystemProcessInformation) call on the same machine, and one stack walk of a
// thread 50 calls deep. Prints the raw times and the ratio; asserts nothing.
#include "child_process.h"
#include "kestrel.h"
#include "query_timing.h"

#include <cstdio>
#include <vector>

namespace {

using namespace kestrel_bench;

constexpr unsigned WantedThreads = 500;
constexpr int Rounds = 100;

void MeasureThreadList(QuerySystemInformationFn query) {
    lmvx_test::ChildProcess child(L"threads " + std::to_wstring(WantedThreads - 1) + L" 600000");
    kestrel::PD_THREADLIST list;
    const auto deadline = Clock::now() + std::chrono::seconds(60);
    while (Clock::now() < deadline && (!list.QueryThreadList(child.Pid()) || list.GetThreadCount() < WantedThreads)) {
        Sleep(50);
    }
    std::printf("child threads: %u\n", list.GetThreadCount());
    kestrel::PD_THREADLIST cold;
    auto start = Clock::now();
    cold.QueryThreadList(child.Pid());
    std::printf("first query of a new list (reads each thread's start address once): %.0f us\n", MicrosecondsSince(start));

    std::vector<unsigned char> buffer(256 * 1024);
    std::vector<double> listTimes, bareTimes;
    for (int round = 0; round < Rounds; ++round) {
        start = Clock::now();
        list.QueryThreadList(child.Pid());
        listTimes.push_back(MicrosecondsSince(start));
        start = Clock::now();
        QueryProcesses(query, buffer);
        bareTimes.push_back(MicrosecondsSince(start));
    }
    const double listMedian = Median(listTimes);
    const double bareMedian = Median(bareTimes);
    std::printf("QueryThreadList, median of %d: %.0f us\n", Rounds, listMedian);
    std::printf("bare SystemProcessInformation query, median of %d: %.0f us\n", Rounds, bareMedian);
    std::printf("ratio: %.2f\n", listMedian / bareMedian);
}

void MeasureStackWalk() {
    lmvx_test::ChildProcess child(L"deep-stack 50 600000");
    kestrel::PD_THREADLIST list;
    const auto deadline = Clock::now() + std::chrono::seconds(30);
    while (Clock::now() < deadline && (!list.QueryThreadList(child.Pid()) || list.GetThreadCount() == 0)) Sleep(50);
    if (list.GetThreadCount() == 0) return;
    Sleep(1000);   // the recursion takes microseconds: by now the thread sleeps at the bottom of it
    const unsigned threadId = list.GetThread(0)->GetThreadID();
    HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, child.Pid());
    HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT | THREAD_QUERY_INFORMATION, FALSE, threadId);
    for (int run = 1; run <= 3; ++run) {
        kestrel::_SI_STACKDUMP stack;
        const auto start = Clock::now();
        const int walked = stack.CreateStackDump(process, thread, nullptr);
        std::printf("stack walk %d: %s, %u frames, %.0f ms\n", run, walked ? "ok" : "failed", stack.frameCount,
                    MicrosecondsSince(start) / 1000);
    }
    CloseHandle(thread);
    CloseHandle(process);
}

}  // namespace

int wmain() {
    const auto query = SystemInformationQuery();
    if (!query) return 1;
    MeasureThreadList(query);
    MeasureStackWalk();
    return 0;
}
