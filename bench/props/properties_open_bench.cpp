// The process properties window's own cost: time from the properties command to the shown General page and
// to the complete page tree, and the CPU of one open window showing the Performance page (its 100 ms poll),
// measured on the window's own thread, beyond the main window's.
//   lmvx_properties_bench [--threads 50] [--runs 5] [--seconds 10]
#include <windows.h>
#include <commctrl.h>
#include <tlhelp32.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

#include "child_process.h"
#include "hosted_main_window.h"
#include "properties_window_driver.h"
#include "resource.h"

namespace {

using lmvx_test::PumpUntil;

constexpr DWORD kLimitMs = 30000;

double Milliseconds(LARGE_INTEGER from, LARGE_INTEGER to) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

LARGE_INTEGER Now() {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now;
}

unsigned ModuleCount(DWORD pid) {
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, pid);
    if (snapshot == INVALID_HANDLE_VALUE) return 0;
    MODULEENTRY32W entry{sizeof entry};
    unsigned count = 0;
    for (BOOL more = Module32FirstW(snapshot, &entry); more; more = Module32NextW(snapshot, &entry)) ++count;
    CloseHandle(snapshot);
    return count;
}

ULONGLONG ThreadCpu100ns(HANDLE thread) {
    FILETIME created, exited, kernel, user;
    if (!GetThreadTimes(thread, &created, &exited, &kernel, &user)) return 0;
    auto value = [](FILETIME t) { return (static_cast<ULONGLONG>(t.dwHighDateTime) << 32) | t.dwLowDateTime; };
    return value(kernel) + value(user);
}

// Sends the properties command and returns the new frame once its General page shows (ms in *shown) and
// its tree is complete (ms in *complete).
HWND OpenAndTime(HWND mainWindow, unsigned pid, double* shown, double* complete) {
    const size_t before = props_test::PropertiesFramesOf(pid).size();
    const LARGE_INTEGER start = Now();
    SendMessageW(mainWindow, WM_COMMAND, IDM_PROPERTIES, 0);
    HWND frame = nullptr;
    if (!PumpUntil([&] {
            const std::vector<HWND> frames = props_test::PropertiesFramesOf(pid);
            if (frames.size() <= before || props_test::VisiblePages(frames.back()).empty()) return false;
            frame = frames.back();
            return true;
        }, kLimitMs))
        return nullptr;
    *shown = Milliseconds(start, Now());
    PumpUntil([&] { return TreeView_GetCount(GetDlgItem(frame, IDC_PROPERTIES_TREE)) > 0; }, kLimitMs);
    *complete = Milliseconds(start, Now());
    return frame;
}

void Close(HWND frame) {
    PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
    PumpUntil([&] { return !IsWindow(frame); }, kLimitMs);
}

unsigned Option(int argc, wchar_t** argv, const wchar_t* name, unsigned fallback) {
    for (int i = 1; i + 1 < argc; ++i)
        if (std::wcscmp(argv[i], name) == 0) return static_cast<unsigned>(std::wcstoul(argv[i + 1], nullptr, 10));
    return fallback;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const unsigned threads = Option(argc, argv, L"--threads", 50);
    const unsigned runs = Option(argc, argv, L"--runs", 5);
    const unsigned seconds = Option(argc, argv, L"--seconds", 10);
    mainwnd_test::ScopedHostedProgram program(L"LumivexPropertiesBench");
    lmvx_test::ChildProcess child(L"threads " + std::to_wstring(threads - 1) + L" 600000");
    mainwnd_test::HostedMainWindow main;
    if (!child.Started() || !main.SelectProcess(child.Pid(), kLimitMs)) return 1;
    std::printf("process: %u threads, %u modules\n", threads, ModuleCount(child.Pid()));

    for (unsigned run = 0; run < runs; ++run) {
        double shown = 0, complete = 0;
        HWND frame = OpenAndTime(main.Get(), child.Pid(), &shown, &complete);
        if (!frame) return 2;
        std::printf("run %u: General page shown %.1f ms, tree complete %.1f ms\n", run + 1, shown, complete);
        Close(frame);
    }

    double shown = 0, complete = 0;
    HWND frame = OpenAndTime(main.Get(), child.Pid(), &shown, &complete);
    if (!frame) return 2;
    HWND tree = GetDlgItem(frame, IDC_PROPERTIES_TREE);
    for (const props_test::TreeItemSeen& item : props_test::ReadPageTree(tree))
        if (item.text == L"Performance") SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item.item));
    HANDLE thread = OpenThread(THREAD_QUERY_INFORMATION, FALSE, GetWindowThreadProcessId(frame, nullptr));
    const ULONGLONG cpuBefore = ThreadCpu100ns(thread);
    const LARGE_INTEGER start = Now();
    const DWORD end = GetTickCount() + seconds * 1000;
    PumpUntil([&] { return GetTickCount() >= end; }, seconds * 1000 + 1000);
    const double wallMs = Milliseconds(start, Now());
    const double cpuMs = static_cast<double>(ThreadCpu100ns(thread) - cpuBefore) / 10000.0;
    std::printf("one window, Performance page: %.1f ms CPU in %.0f ms = %.2f %% of a core\n", cpuMs, wallMs,
                100.0 * cpuMs / wallMs);
    CloseHandle(thread);
    Close(frame);
    return 0;
}
