// Measures what the running program costs: its CPU time per refresh cycle as a share of one core, and
// its private bytes over a long run. Starts idle children first so the list is a realistic size.
//
//   lmvx_program_cost_bench [--interval ms] [--seconds n] [--children n] [--sample-every s] [--pin 1]
//                           [--language 0x0407] [--warm-up s] [--behind 1]
//
// --behind 1 puts a window of this benchmark in front of the main window: the views then refresh on the
// UI thread, without a message across threads per control change.
//
// Before the program starts it also measures, in this process, the two costs every refresh cycle carries
// whatever the program draws: the 1 ms sleep poll that waits out the period, and one bare process-list
// query with the same processes running.
//
// Prints figures; asserts nothing.
#include <windows.h>
#include <winternl.h>

#include <cstdio>
#include <algorithm>
#include <cwchar>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "child_process.h"
#include "popup_pinning.h"
#include "program_runner.h"
#include "settings_seed.h"

namespace {

struct Options {
    unsigned intervalMs = 1000;
    unsigned seconds = 60;
    unsigned children = 150;
    unsigned sampleEverySeconds = 30;
    unsigned warmUpSeconds = 20;
    bool pinPopups = false;
    bool behind = false;
    LANGID language = 0x0409;
};

Options ParseOptions(int argc, wchar_t** argv) {
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        const unsigned value = static_cast<unsigned>(_wtoi(argv[i + 1]));
        if (!wcscmp(argv[i], L"--interval")) options.intervalMs = value;
        if (!wcscmp(argv[i], L"--seconds")) options.seconds = value;
        if (!wcscmp(argv[i], L"--children")) options.children = value;
        if (!wcscmp(argv[i], L"--sample-every")) options.sampleEverySeconds = value ? value : 1;
        if (!wcscmp(argv[i], L"--warm-up")) options.warmUpSeconds = value;
        if (!wcscmp(argv[i], L"--pin")) options.pinPopups = value != 0;
        if (!wcscmp(argv[i], L"--behind")) options.behind = value != 0;
        if (!wcscmp(argv[i], L"--language")) options.language = static_cast<LANGID>(wcstoul(argv[i + 1], nullptr, 0));
    }
    return options;
}

// The system's process list into buffer, grown as needed; false when it cannot be read.
bool QueryProcessList(std::vector<BYTE>& buffer) {
    using Query = NTSTATUS(NTAPI*)(ULONG, PVOID, ULONG, PULONG);
    static const auto query =
        reinterpret_cast<Query>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation"));
    constexpr ULONG kSystemProcessInformation = 5;
    if (buffer.empty()) buffer.resize(1 << 20);
    ULONG needed = 0;
    while (query && query(kSystemProcessInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &needed) < 0) {
        if (buffer.size() > (64u << 20)) return false;
        buffer.resize(buffer.size() * 2);
    }
    return query != nullptr;
}

// Kernel plus user time of a process and of each of its threads (100 ns units), from the system's process
// list: under Wine, GetProcessTimes reports zero times for other processes, while the system process list
// carries the real ones.
struct ProcessCpu {
    ULONGLONG total = 0;
    std::map<DWORD, ULONGLONG> threads;   // by thread id
};

ProcessCpu ReadProcessCpu(DWORD pid) {
    ProcessCpu cpu;
    std::vector<BYTE> buffer;
    if (!QueryProcessList(buffer)) return cpu;
    // The entry's layout up to the process id: next offset, thread count, 24 bytes of other counters, the creation,
    // user and kernel times, then name and priority; the process id follows those. The thread entries follow
    // the whole process entry (256 bytes on x64).
    struct Entry {
        ULONG nextOffset;
        ULONG threadCount;
        BYTE reserved[24];
        LARGE_INTEGER createTime;
        LARGE_INTEGER userTime;
        LARGE_INTEGER kernelTime;
        UNICODE_STRING imageName;
        LONG basePriority;
        HANDLE processId;
    };
    struct ThreadEntry {
        LARGE_INTEGER kernelTime;
        LARGE_INTEGER userTime;
        LARGE_INTEGER createTime;
        ULONG waitTime;
        PVOID startAddress;
        CLIENT_ID clientId;
        LONG priority;
        LONG basePriority;
        ULONG contextSwitches;
        ULONG threadState;
        ULONG waitReason;
    };
    constexpr size_t kProcessEntrySize = 256;
    for (size_t offset = 0; offset < buffer.size();) {
        const auto* entry = reinterpret_cast<const Entry*>(buffer.data() + offset);
        if (reinterpret_cast<ULONG_PTR>(entry->processId) == pid) {
            cpu.total = static_cast<ULONGLONG>(entry->userTime.QuadPart + entry->kernelTime.QuadPart);
            const auto* thread = reinterpret_cast<const ThreadEntry*>(buffer.data() + offset + kProcessEntrySize);
            for (ULONG i = 0; i < entry->threadCount; ++i, ++thread) {
                const auto tid = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(thread->clientId.UniqueThread));
                cpu.threads[tid] = static_cast<ULONGLONG>(thread->userTime.QuadPart + thread->kernelTime.QuadPart);
            }
            return cpu;
        }
        if (entry->nextOffset == 0) break;
        offset += entry->nextOffset;
    }
    return cpu;
}

ULONGLONG CpuTime100ns(DWORD pid) { return ReadProcessCpu(pid).total; }

// Each thread's share of one core between two readings, the main window's thread first, busiest next.
void PrintThreadShares(const ProcessCpu& before, const ProcessCpu& after, DWORD windowThread, double seconds) {
    std::vector<std::pair<double, DWORD>> shares;
    for (const auto& [tid, time] : after.threads) {
        const auto earlier = before.threads.find(tid);
        const ULONGLONG start = earlier != before.threads.end() ? earlier->second : 0;
        shares.emplace_back((time - start) / 1e5 / seconds, tid);
    }
    std::sort(shares.rbegin(), shares.rend());
    for (const auto& [share, tid] : shares) {
        if (tid == windowThread) wprintf(L"  main window's thread (UI): %.2f %% of one core\n", share);
    }
    for (const auto& [share, tid] : shares) {
        if (tid != windowThread && share >= 0.01) wprintf(L"  thread %04lx: %.2f %% of one core\n", tid, share);
    }
}

// Private bytes through the VM counters, which Wine fills (the documented process counters give 0 there).
SIZE_T PrivateBytes(HANDLE process) {
    struct VmCountersWithPrivate {   // VM_COUNTERS followed by the private commit, as the system fills it
        VM_COUNTERS counters;
        SIZE_T privateUsage;
    } counters{};
    ULONG length = 0;
    using Query = NTSTATUS(NTAPI*)(HANDLE, PROCESSINFOCLASS, PVOID, ULONG, PULONG);
    static const auto query =
        reinterpret_cast<Query>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationProcess"));
    constexpr auto kProcessVmCounters = static_cast<PROCESSINFOCLASS>(3);
    if (!query || query(process, kProcessVmCounters, &counters, sizeof counters, &length) < 0) return 0;
    return counters.privateUsage;
}

double ThreadCpuMs() {
    FILETIME created{}, ended{}, kernel{}, user{};
    GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
    const auto value = [](const FILETIME& time) {
        return (static_cast<ULONGLONG>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
    };
    return (value(kernel) + value(user)) / 1e4;
}

// CPU share of one core that a thread doing nothing but Sleep(1) against GetTickCount() costs.
double SleepPollShare(unsigned seconds) {
    const double cpuBefore = ThreadCpuMs();
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < seconds * 1000) Sleep(1);
    return (ThreadCpuMs() - cpuBefore) / (seconds * 10.0);
}

// Wall time of one bare process-list query, the median of a run of them.
double BareQueryMs(unsigned rounds) {
    std::vector<double> times;
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    std::vector<BYTE> buffer;
    QueryProcessList(buffer);   // sized once, as a program that keeps its buffer would have it
    for (unsigned i = 0; i < rounds; ++i) {
        LARGE_INTEGER before{}, after{};
        QueryPerformanceCounter(&before);
        QueryProcessList(buffer);
        QueryPerformanceCounter(&after);
        times.push_back((after.QuadPart - before.QuadPart) * 1000.0 / frequency.QuadPart);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const Options options = ParseOptions(argc, argv);
    using namespace lmvx::test;
    SeedQuietStart(options.language);
    StoreDword(L"UpdateInterval", options.intervalMs);

    std::vector<std::unique_ptr<lmvx_test::ChildProcess>> idle;
    for (unsigned i = 0; i < options.children; ++i) {
        idle.push_back(std::make_unique<lmvx_test::ChildProcess>(L"sleep 3600000"));
    }

    const unsigned period = options.intervalMs ? options.intervalMs : 100;
    const double pollShare = SleepPollShare(10);
    const double queryMs = BareQueryMs(50);
    wprintf(L"in this process: the 1 ms sleep poll alone costs %.2f %% of one core; one bare process-list query "
            L"takes %.2f ms, %.2f %% of one core at one query per %u ms\n",
            pollShare, queryMs, 100.0 * queryMs / period, period);

    ProgramRunner program;
    if (!program.Start(TestBinFolder() + L"\\lmvx64.exe", L"")) {
        std::fwprintf(stderr, L"could not start lmvx64.exe\n");
        return 1;
    }
    HWND main = program.WaitForWindowWithCaption(L"Orvane Lumivex 5", 60000);
    if (!main) {
        std::fwprintf(stderr, L"the main window did not open\n");
        return 1;
    }
    // The first cycles read every process's fixed data and fill the list: the steady state is what counts.
    Sleep(options.warmUpSeconds * 1000);
    if (options.pinPopups) {
        const lmvx_bench::PinnedPopups popups = lmvx_bench::ShowAndPinPopups(main, 10000);
        wprintf(L"CPU pop-up %ls, memory pop-up %ls\n", popups.cpu ? L"pinned" : L"NOT pinned",
                popups.memory ? L"pinned" : L"NOT pinned");
    }

    HWND cover = nullptr;
    if (options.behind) {
        cover = CreateWindowExW(0, L"STATIC", L"in front of Lumivex", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        SetForegroundWindow(cover);
        wprintf(L"main window %ls the foreground window\n", GetForegroundWindow() == main ? L"IS STILL" : L"is not");
    }
    const ProcessCpu cpuAtStart = ReadProcessCpu(program.Pid());
    const ULONGLONG cpuStart = cpuAtStart.total;
    const ULONGLONG wallStart = GetTickCount64();
    std::vector<SIZE_T> privateSamples{PrivateBytes(program.Process())};
    wprintf(L"t=0s private=%.2f MB\n", privateSamples.back() / 1048576.0);
    ULONGLONG cpuBefore = cpuStart;
    for (unsigned elapsed = 0; elapsed < options.seconds;) {
        const unsigned step = std::min(options.sampleEverySeconds, options.seconds - elapsed);
        Sleep(step * 1000);
        elapsed += step;
        privateSamples.push_back(PrivateBytes(program.Process()));
        // The share per sample shows when the steady state was reached and whether it holds.
        const ULONGLONG cpuNow = CpuTime100ns(program.Pid());
        wprintf(L"t=%us private=%.2f MB, CPU over the last %u s: %.2f %% of one core\n", elapsed,
                privateSamples.back() / 1048576.0, step, (cpuNow - cpuBefore) / 1e5 / step);
        cpuBefore = cpuNow;
        fflush(stdout);
    }
    const ProcessCpu cpuEnd = ReadProcessCpu(program.Pid());
    const double cpuSeconds = (cpuEnd.total - cpuStart) / 1e7;
    const double wallSeconds = (GetTickCount64() - wallStart) / 1000.0;
    const double cycles = wallSeconds * 1000.0 / (options.intervalMs ? options.intervalMs : 100);

    wprintf(L"refresh interval: %u ms, pop-ups %ls, idle children started: %u, run: %.0f s\n", options.intervalMs,
            options.pinPopups ? L"pinned open" : L"closed", options.children, wallSeconds);
    wprintf(L"program CPU: %.3f s = %.3f %% of one core, %.3f ms per cycle\n", cpuSeconds,
            100.0 * cpuSeconds / wallSeconds, 1000.0 * cpuSeconds / cycles);
    // The refresh thread carries the wait poll and the process-list query measured above; the UI thread
    // answers the refresh thread's messages to its windows and repaints.
    PrintThreadShares(cpuAtStart, cpuEnd, GetWindowThreadProcessId(main, nullptr), wallSeconds);
    const size_t half = privateSamples.size() / 2;
    wprintf(L"private bytes: %.2f MB at the end; change over the second half of the run: %+.2f MB\n",
            privateSamples.back() / 1048576.0,
            (static_cast<double>(privateSamples.back()) - static_cast<double>(privateSamples[half])) / 1048576.0);
    if (cover) DestroyWindow(cover);
    PostMessageW(main, WM_CLOSE, 0, 0);
    program.WaitForExit(10000);
    return 0;
}
