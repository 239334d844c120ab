// Cost of the process properties window, measured on this program's own process with ~100 modules and
// ~50 threads: the time from the properties command to the painted first page and to the complete page
// tree, and the CPU of one open window at a 100 ms refresh with the General page shown (what the hidden
// pages cost) and with the Performance page shown.
//   properties_open_bench.exe [--runs N] [--seconds S]
#include <windows.h>
#include <commctrl.h>
#include <tlhelp32.h>

#include <cstdio>
#include <cwchar>
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

HWND PerformancePage(HWND frame) {
    HWND tree = GetDlgItem(frame, IDC_PROPERTIES_TREE);
    for (HTREEITEM item = TreeView_GetChild(tree, TreeView_GetRoot(tree)); item; item = TreeView_GetNextSibling(tree, item)) {
        wchar_t text[64] = {};
        TVITEMW data{TVIF_TEXT | TVIF_PARAM, item};
        data.pszText = text;
        data.cchTextMax = 64;
        TreeView_GetItem(tree, &data);
        if (std::wcscmp(text, L"Performance") == 0) {
            TreeView_SelectItem(tree, item);
            return reinterpret_cast<HWND>(data.lParam);
        }
    }
    return nullptr;
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
        QueryPerformanceCounter(&start);
        SendMessageW(main.Get(), WM_COMMAND, IDM_PROPERTIES, 0);
        HWND frame = nullptr;
        PumpUntil([&] { return (frame = FindFrame()) != nullptr && VisiblePainted(frame) != nullptr; }, kLimitMs);
        QueryPerformanceCounter(&firstPage);
        HWND tree = frame ? GetDlgItem(frame, IDC_PROPERTIES_TREE) : nullptr;
        PumpUntil([&] { return tree && TreeView_GetCount(tree) >= ExpectedTreeItems(); }, kLimitMs);
        QueryPerformanceCounter(&complete);
        std::printf("run %d: first page painted %.1f ms, complete tree %.1f ms\n", run + 1,
                    Milliseconds(start, firstPage), Milliseconds(start, complete));
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
    std::printf("one window, General page shown (the other pages' timers): %.2f %% of one core over %d s\n",
                measure(), seconds);
    if (!PerformancePage(frame)) {
        std::printf("no Performance page to measure\n");
        EndWith(0);
    }
    std::printf("one window, Performance page at 100 ms: %.2f %% of one core over %d s\n", measure(), seconds);
    CloseHandle(thread);
    CloseFrame(frame);
    EndWith(0);
}
