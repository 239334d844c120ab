// Measures the running program's CPU with both performance pop-ups shown and pinned, so that each cycle
// samples, updates the tray picture, redraws both pop-ups' figures and graphs and refreshes the list and
// the status bar: the whole cost of the sampler's cycle, as a share of one core.
//
//   lmvx_popup_cost_bench [--interval ms] [--seconds n] [--children n] [--pin 0|1] [--language 0x0407]
//                         [--hold s]
//
// --hold keeps the program open that many seconds after measuring (for pictures of the screen).
// Prints figures; asserts nothing.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <memory>
#include <vector>

#include "child_process.h"
#include "popup_pinning.h"
#include "program_runner.h"
#include "settings_seed.h"

namespace {

struct Options {
    unsigned intervalMs = 100;
    unsigned seconds = 60;
    unsigned children = 0;
    bool pin = true;
    LANGID language = 0x0409;
    unsigned holdSeconds = 0;
};

Options ParseOptions(int argc, wchar_t** argv) {
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        const unsigned value = static_cast<unsigned>(wcstoul(argv[i + 1], nullptr, 0));
        if (!wcscmp(argv[i], L"--interval")) options.intervalMs = value;
        if (!wcscmp(argv[i], L"--seconds")) options.seconds = value;
        if (!wcscmp(argv[i], L"--children")) options.children = value;
        if (!wcscmp(argv[i], L"--pin")) options.pin = value != 0;
        if (!wcscmp(argv[i], L"--language")) options.language = static_cast<LANGID>(value);
        if (!wcscmp(argv[i], L"--hold")) options.holdSeconds = value;
    }
    return options;
}

// Kernel plus user time of a process from the system's process list: Wine fills it there for every
// process, while GetProcessTimes of another process gives 0.
ULONGLONG CpuTime100ns(DWORD pid) {
    using Query = LONG(NTAPI*)(ULONG, PVOID, ULONG, PULONG);
    static const auto query =
        reinterpret_cast<Query>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation"));
    constexpr ULONG kSystemProcessInformation = 5;
    // Offsets in the 64-bit SYSTEM_PROCESS_INFORMATION record.
    constexpr size_t kUserTime = 40, kKernelTime = 48, kProcessId = 80;
    std::vector<BYTE> buffer(1 << 20);
    ULONG length = 0;
    while (query && query(kSystemProcessInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &length) < 0) {
        if (buffer.size() >= (64u << 20)) return 0;
        buffer.resize(buffer.size() * 2);
    }
    for (size_t offset = 0;;) {
        const BYTE* entry = buffer.data() + offset;
        ULONGLONG user = 0, kernel = 0;
        ULONG_PTR id = 0;
        std::memcpy(&user, entry + kUserTime, sizeof user);
        std::memcpy(&kernel, entry + kKernelTime, sizeof kernel);
        std::memcpy(&id, entry + kProcessId, sizeof id);
        if (id == pid) return user + kernel;
        ULONG next = 0;
        std::memcpy(&next, entry, sizeof next);
        if (next == 0) return 0;
        offset += next;
    }
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
    Sleep(3000);   // start-up work done: the steady state is what counts
    if (options.pin) {
        const lmvx_bench::PinnedPopups popups = lmvx_bench::ShowAndPinPopups(main, 10000);
        wprintf(L"CPU pop-up %ls, memory pop-up %ls\n", popups.cpu ? L"pinned" : L"NOT pinned",
                popups.memory ? L"pinned" : L"NOT pinned");
    }
    Sleep(2000);

    const ULONGLONG cpuStart = CpuTime100ns(program.Pid());
    const ULONGLONG wallStart = GetTickCount64();
    Sleep(options.seconds * 1000);
    const double cpuSeconds = (CpuTime100ns(program.Pid()) - cpuStart) / 1e7;
    const double wallSeconds = (GetTickCount64() - wallStart) / 1000.0;
    const double cycles = wallSeconds * 1000.0 / (options.intervalMs ? options.intervalMs : 100);

    wprintf(L"refresh interval: %u ms, pop-ups %ls, idle children: %u, run: %.0f s\n", options.intervalMs,
            options.pin ? L"pinned open" : L"hidden", options.children, wallSeconds);
    wprintf(L"program CPU: %.3f s = %.2f %% of one core, %.3f ms per cycle\n", cpuSeconds,
            100.0 * cpuSeconds / wallSeconds, 1000.0 * cpuSeconds / cycles);
    fflush(stdout);
    Sleep(options.holdSeconds * 1000);
    PostMessageW(main, WM_CLOSE, 0, 0);
    program.WaitForExit(10000);
    return 0;
}
