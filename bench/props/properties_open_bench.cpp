// Cost of the process properties window, measured on this program's own process with ~100 modules and
// ~50 threads: the time from the properties command to the painted first page and to the complete page
// tree, and the CPU of one open window at a 100 ms refresh with the General page shown (what the hidden
// pages cost) and with the Performance page shown. Each CPU figure is broken down by page (time and CPU
// inside each page's procedure, the messages the window's thread takes) and set beside the floor: an
// empty window with as many self-re-arming 100 ms timers.
//   properties_open_bench.exe [--runs N] [--seconds S]
#include <windows.h>
#include <commctrl.h>
#include <tlhelp32.h>

#include <cstdio>
#include <cwchar>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "hosted_main_window.h"
#include "mainwnd/properties_pages.h"
#include "resource.h"

namespace {

using mainwnd_test::PumpUntil;

constexpr DWORD kLimitMs = 30000;

double Milliseconds(LARGE_INTEGER from, LARGE_INTEGER to) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

size_t CountOwnModules() {
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetCurrentProcessId());
    if (snapshot == INVALID_HANDLE_VALUE) return 0;
    MODULEENTRY32W entry{sizeof entry};
    size_t count = 0;
    for (BOOL more = Module32FirstW(snapshot, &entry); more; more = Module32NextW(snapshot, &entry)) ++count;
    CloseHandle(snapshot);
    return count;
}

// Loads DLLs of the system folder (kept loaded) until the process holds about target modules.
void LoadModulesUpTo(size_t target) {
    wchar_t system[MAX_PATH];
    GetSystemDirectoryW(system, MAX_PATH);
    WIN32_FIND_DATAW found;
    HANDLE find = FindFirstFileW((std::wstring(system) + L"\\*.dll").c_str(), &found);
    if (find == INVALID_HANDLE_VALUE) return;
    size_t loaded = CountOwnModules();
    do {
        if (LoadLibraryExW((std::wstring(system) + L"\\" + found.cFileName).c_str(), nullptr, 0)) ++loaded;
    } while (loaded < target && FindNextFileW(find, &found));
    FindClose(find);
}

void StartIdleThreads(int count) {
    for (int i = 0; i < count; ++i) {
        HANDLE thread = CreateThread(nullptr, 0, [](void*) -> DWORD { Sleep(INFINITE); return 0; }, nullptr, 0, nullptr);
        if (thread) CloseHandle(thread);
    }
}

HWND FindFrame() {
    const std::wstring suffix = L"(Process " + std::to_wstring(GetCurrentProcessId()) + L")";
    struct Search { std::wstring suffix; HWND found = nullptr; } search{suffix};
    EnumWindows([](HWND window, LPARAM parameter) -> BOOL {
        auto* s = reinterpret_cast<Search*>(parameter);
        // Without a message: the frame's thread answers none while it builds its pages.
        wchar_t caption[512] = {};
        InternalGetWindowText(window, caption, 512);
        const std::wstring text = caption;
        if (text.size() >= s->suffix.size() && text.ends_with(s->suffix)) s->found = window;
        return s->found == nullptr;
    }, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND VisiblePainted(HWND frame) {
    for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t className[16] = {};
        GetClassNameW(child, className, 16);
        if (std::wcscmp(className, L"#32770") == 0 && IsWindowVisible(child) && !GetUpdateRect(child, nullptr, FALSE)) {
            return child;
        }
    }
    return nullptr;
}

size_t ExpectedTreeItems() {
    size_t items = 1;  // the root; this process allows every page's condition
    for (const auto& page : lmvx::ProgramPropertyPages()) items += page.procedure ? 1 : 0;
    return items;
}

void CloseFrame(HWND frame) {
    PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
    PumpUntil([&] { return !IsWindow(frame); }, kLimitMs);
}

double ThreadCpuMs(HANDLE thread) {
    FILETIME created, exited, kernel, user;
    if (!GetThreadTimes(thread, &created, &exited, &kernel, &user)) return 0;
    auto ms = [](FILETIME t) { return (static_cast<double>(t.dwHighDateTime) * 4294967296.0 + t.dwLowDateTime) / 1e4; };
    return ms(kernel) + ms(user);
}

// The page items under the root: each item's label and the page it shows.
struct PageItem {
    HTREEITEM item;
    std::wstring label;
    HWND page;
};
std::vector<PageItem> PageItems(HWND tree) {
    std::vector<PageItem> items;
    for (HTREEITEM item = TreeView_GetChild(tree, TreeView_GetRoot(tree)); item; item = TreeView_GetNextSibling(tree, item)) {
        wchar_t text[64] = {};
        TVITEMW data{TVIF_TEXT | TVIF_PARAM, item};
        data.pszText = text;
        data.cchTextMax = 64;
        TreeView_GetItem(tree, &data);
        items.push_back({item, text, reinterpret_cast<HWND>(data.lParam)});
    }
    return items;
}

HWND PerformancePage(HWND frame) {
    HWND tree = GetDlgItem(frame, IDC_PROPERTIES_TREE);
    for (const PageItem& entry : PageItems(tree)) {
        if (entry.label == L"Performance") {
            TreeView_SelectItem(tree, entry.item);
            return entry.page;
        }
    }
    return nullptr;
}

// The moments the frame's thread starts creating each dialog: the frame, then the pages in the table's
// order (each page's inner panes too). The gaps between them are what each page costs to create and
// initialise; the gap after the first page also holds showing and painting the frame and the access probe.
std::vector<LARGE_INTEGER> dialogStarts;
LRESULT CALLBACK CountDialogStarts(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND) {
        wchar_t className[16] = {};
        GetClassNameW(reinterpret_cast<HWND>(wParam), className, 16);
        if (std::wcscmp(className, L"#32770") == 0) {
            LARGE_INTEGER now;
            QueryPerformanceCounter(&now);
            dialogStarts.push_back(now);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

std::set<DWORD> OwnThreads() {
    std::set<DWORD> threads;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return threads;
    THREADENTRY32 entry{sizeof entry};
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) threads.insert(entry.th32ThreadID);
    }
    CloseHandle(snapshot);
    return threads;
}

// Hooks the threads started since `before`; the dialogs created before the hook is set are not seen.
struct DialogCreationHooks {
    std::set<DWORD> before = OwnThreads();
    std::vector<HHOOK> hooks;
    void HookNewThreads() {
        if (!hooks.empty()) return;
        for (DWORD thread : OwnThreads()) {
            if (before.count(thread)) continue;
            if (HHOOK hook = SetWindowsHookExW(WH_CBT, &CountDialogStarts, nullptr, thread)) hooks.push_back(hook);
        }
    }
    ~DialogCreationHooks() {
        for (HHOOK hook : hooks) UnhookWindowsHookEx(hook);
        dialogStarts.clear();
    }
    void Print(LARGE_INTEGER complete) const {
        std::printf("    dialogs seen created: %zu; ms from each to the next (the last: to the complete tree):",
                    dialogStarts.size());
        for (size_t i = 0; i < dialogStarts.size(); ++i) {
            std::printf(" %.0f", Milliseconds(dialogStarts[i], i + 1 < dialogStarts.size() ? dialogStarts[i + 1] : complete));
        }
        std::printf("\n");
    }
};

// Time spent in each page's window procedure, for the breakdown of a window's CPU: every page of the tree
// and the frame are subclassed on the bench's side; the procedures run on the frame's thread.
struct ProcedureTime {
    HWND window = nullptr;
    std::wstring name;
    WNDPROC original = nullptr;
    LONGLONG ticks = 0;   // performance-counter ticks inside the procedure
    double cpuMs = 0;     // the thread's CPU inside the procedure (coarse per call, right in sum)
    unsigned timerMessages = 0;
};
std::vector<ProcedureTime> procedureTimes;

LRESULT CALLBACK TimedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    for (ProcedureTime& entry : procedureTimes) {
        if (entry.window != window) continue;
        LARGE_INTEGER from, to;
        const double cpuBefore = ThreadCpuMs(GetCurrentThread());
        QueryPerformanceCounter(&from);
        const LRESULT result = CallWindowProcW(entry.original, window, message, wParam, lParam);
        QueryPerformanceCounter(&to);
        entry.cpuMs += ThreadCpuMs(GetCurrentThread()) - cpuBefore;
        entry.ticks += to.QuadPart - from.QuadPart;
        if (message == WM_TIMER) ++entry.timerMessages;
        return result;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Every message the frame's thread takes from its queue, by window class and message.
std::map<std::pair<std::wstring, UINT>, unsigned> takenMessages;
LRESULT CALLBACK CountTaken(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && wParam == PM_REMOVE) {
        const MSG* message = reinterpret_cast<const MSG*>(lParam);
        wchar_t className[64] = L"(none)";
        if (message->hwnd) GetClassNameW(message->hwnd, className, 64);
        ++takenMessages[{className, message->message}];
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
void PrintTaken(int seconds) {
    for (const auto& [key, count] : takenMessages) {
        std::printf("    taken: %-24ls 0x%04X  %.1f/s\n", key.first.c_str(), key.second, static_cast<double>(count) / seconds);
    }
    takenMessages.clear();
}

void TimeProcedures(HWND frame) {
    HWND tree = GetDlgItem(frame, IDC_PROPERTIES_TREE);
    procedureTimes.reserve(32);
    procedureTimes.push_back({frame, L"(frame)"});
    for (const PageItem& entry : PageItems(tree)) {
        if (entry.page) procedureTimes.push_back({entry.page, entry.label});
    }
    SetWindowsHookExW(WH_GETMESSAGE, &CountTaken, nullptr, GetWindowThreadProcessId(frame, nullptr));
    for (ProcedureTime& entry : procedureTimes) {
        entry.original = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(entry.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TimedProcedure)));
    }
}

void PrintProcedureTimes(int seconds) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    for (ProcedureTime& entry : procedureTimes) {
        std::printf("    %-16ls %6.2f ms/s in its procedure, CPU %5.2f %%, %u timer messages\n", entry.name.c_str(),
                    1000.0 * static_cast<double>(entry.ticks) / static_cast<double>(frequency.QuadPart) / seconds,
                    entry.cpuMs / seconds / 10.0, entry.timerMessages);
        entry.ticks = 0;
        entry.cpuMs = 0;
        entry.timerMessages = 0;
    }
    PrintTaken(seconds);
}

// What the same number of timers costs alone: an empty window on a thread of its own whose timers each
// stop and re-arm themselves at 100 ms, as the pages' do. Under Wine every timer call and every timer
// message is a round trip to the server, so this is the floor under the window's figure.
double EmptyWindowTimersCpu(unsigned timers, int seconds) {
    struct Run { unsigned timers; int seconds; double cpu = 0; } run{timers, seconds};
    HANDLE thread = CreateThread(nullptr, 0, [](void* parameter) -> DWORD {
        auto* run = static_cast<Run*>(parameter);
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
            if (message != WM_TIMER) return DefWindowProcW(window, message, wParam, lParam);
            KillTimer(window, wParam);
            SetTimer(window, wParam, 100, nullptr);
            return 0;
        };
        windowClass.lpszClassName = L"LumivexBenchTimers";
        RegisterClassW(&windowClass);
        HWND window = CreateWindowW(L"LumivexBenchTimers", L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
        for (unsigned id = 1; id <= run->timers; ++id) SetTimer(window, id, 100, nullptr);
        const double before = ThreadCpuMs(GetCurrentThread());
        const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(run->seconds) * 1000;
        PumpUntil([&] { return GetTickCount64() >= end; }, static_cast<DWORD>(run->seconds) * 1000 + 1000);
        run->cpu = 100.0 * (ThreadCpuMs(GetCurrentThread()) - before) / (run->seconds * 1000.0);
        DestroyWindow(window);
        return 0;
    }, &run, 0, nullptr);
    if (!thread) return 0;
    // Pumped: creating the window sends messages to this thread's windows.
    PumpUntil([&] { return WaitForSingleObject(thread, 0) == WAIT_OBJECT_0; }, static_cast<DWORD>(seconds) * 1000 + kLimitMs);
    CloseHandle(thread);
    return run.cpu;
}

unsigned ProceduresWithTimers() {
    unsigned count = 0;
    for (const ProcedureTime& entry : procedureTimes) count += entry.timerMessages > 0 ? 1 : 0;
    return count;
}

// Ends the process once the figures are out, without unloading anything: the teardown of the hosted
// program with the hundred system DLLs loaded for the module count does not return under Wine.
[[noreturn]] void EndWith(int code) {
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
    ExitProcess(static_cast<UINT>(code));
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    int runs = 5;
    int seconds = 30;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::wcscmp(argv[i], L"--runs") == 0) runs = _wtoi(argv[i + 1]);
        if (std::wcscmp(argv[i], L"--seconds") == 0) seconds = _wtoi(argv[i + 1]);
    }
    mainwnd_test::ScopedHostedProgram program(L"LumivexPropertiesBench");
    LoadModulesUpTo(100);
    StartIdleThreads(48);
    mainwnd_test::HostedMainWindow main;
    SendMessageW(main.Get(), WM_COMMAND, IDM_RATE_VERY_HIGH, 0);
    if (!main.SelectProcess(GetCurrentProcessId(), kLimitMs)) {
        std::printf("this process never appeared in the list\n");
        return 1;
    }
    std::printf("process: %zu modules; pages in the table: %zu\n", CountOwnModules(), ExpectedTreeItems() - 1);

    for (int run = 0; run < runs; ++run) {
        LARGE_INTEGER start, firstPage{}, complete{};
        DialogCreationHooks hooks;
        QueryPerformanceCounter(&start);
        SendMessageW(main.Get(), WM_COMMAND, IDM_PROPERTIES, 0);
        HWND frame = nullptr;
        PumpUntil([&] {
            hooks.HookNewThreads();
            return (frame = FindFrame()) != nullptr && VisiblePainted(frame) != nullptr;
        }, kLimitMs);
        QueryPerformanceCounter(&firstPage);
        HWND tree = frame ? GetDlgItem(frame, IDC_PROPERTIES_TREE) : nullptr;
        PumpUntil([&] { return tree && TreeView_GetCount(tree) >= ExpectedTreeItems(); }, kLimitMs);
        QueryPerformanceCounter(&complete);
        std::printf("run %d: first page painted %.1f ms, complete tree %.1f ms\n", run + 1,
                    Milliseconds(start, firstPage), Milliseconds(start, complete));
        hooks.Print(complete);
        if (frame) CloseFrame(frame);
    }

    SendMessageW(main.Get(), WM_COMMAND, IDM_PROPERTIES, 0);
    HWND frame = nullptr;
    PumpUntil([&] { return (frame = FindFrame()) != nullptr; }, kLimitMs);
    HWND tree = frame ? GetDlgItem(frame, IDC_PROPERTIES_TREE) : nullptr;
    PumpUntil([&] { return tree && TreeView_GetCount(tree) >= ExpectedTreeItems(); }, kLimitMs);
    if (!frame) return 1;
    HANDLE thread = OpenThread(THREAD_QUERY_INFORMATION, FALSE, GetWindowThreadProcessId(frame, nullptr));
    // The share of one core that the window's thread uses while the pump runs for the given time.
    auto measure = [&] {
        const double before = ThreadCpuMs(thread);
        const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
        PumpUntil([&] { return GetTickCount64() >= end; }, static_cast<DWORD>(seconds) * 1000 + 1000);
        return 100.0 * (ThreadCpuMs(thread) - before) / (seconds * 1000.0);
    };
    TimeProcedures(frame);
    // Steady state only: the pages that load once in the background (modules, their icons) finish first.
    const ULONGLONG settled = GetTickCount64() + 5000;
    PumpUntil([&] { return GetTickCount64() >= settled; }, 6000);
    std::printf("the first 5 s after the window opened:\n");
    PrintProcedureTimes(5);
    std::printf("one window, General page shown (the other pages' timers): %.2f %% of one core over %d s\n",
                measure(), seconds);
    PrintProcedureTimes(seconds);
    if (!PerformancePage(frame)) {
        std::printf("no Performance page to measure\n");
        EndWith(0);
    }
    std::printf("one window, Performance page at 100 ms: %.2f %% of one core over %d s\n", measure(), seconds);
    const unsigned timers = ProceduresWithTimers();
    PrintProcedureTimes(seconds);
    std::printf("floor: an empty window with %u timers re-armed every 100 ms: %.2f %% of one core over %d s\n",
                timers, EmptyWindowTimersCpu(timers, seconds), seconds);
    CloseHandle(thread);
    CloseFrame(frame);
    EndWith(0);
}
