// memory_bench [<file> | search | viewer]: prints three figures (without a file, the last two; "search" or
// "viewer": that one alone).
//  1. Image strings: LoadImageStrings on the file (read and extract), best of three runs.
//  2. Memory search: SearchProcessMemory over this process, which holds 64 MiB of committed private memory
//     below 4 GB, with a plain find text that matches nothing, against a bare loop of ReadProcessMemory over the
//     same committed private regions in the same chunks; MB/s of both.
//  3. Memory viewer: from creating dialog 261 for a child process (address list, first address) to the
//     shown and painted dump of a second address (64 KiB), to its symbol fields and to its whole dump in the
//     field, medians of 10.
#include <windows.h>
#include <commctrl.h>
#include <shlwapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "child_process.h"
#include "finch.h"
#include "memory/memory_search_scan.h"
#include "memory/memory_string_scan.h"
#include "memory/memory_viewer.h"
#include "memory/process_memory.h"
#include "memory/search_pattern.h"
#include "memory/string_set.h"
#include "resource.h"
#include "wren.h"

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

void ImageStrings(const wchar_t* path) {
    double best = 1e9;
    int count = 0;
    for (int run = 0; run < 3; ++run) {
        lmvx::StringSet* set = lmvx::StringSetCreate();
        const auto start = Clock::now();
        const int loaded = lmvx::LoadImageStrings(set, path);
        best = std::min(best, SecondsSince(start));
        count = lmvx::StringSetCount(set);
        lmvx::StringSetFree(set);
        if (!loaded) {
            std::printf("image strings: the file could not be loaded\n");
            return;
        }
    }
    std::printf("image strings: %d strings in %.3f s (best of 3)\n", count, best);
}

// The bare loop: the same committed private regions, read in the same chunks, nothing else.
uint64_t BareReadLoop(HANDLE process) {
    std::vector<uint8_t> chunk(lmvx::kSearchChunkLength);
    uint64_t total = 0;
    lmvx::WalkRegions(process, 0xFFFFFFFFu, 0xFFFFFFFE, [&](const MEMORY_BASIC_INFORMATION& region) {
        if (!lmvx::IsCommittedPrivate(region)) return;
        const auto base = reinterpret_cast<uintptr_t>(region.BaseAddress);
        for (uint64_t offset = 0; offset < region.RegionSize; offset += lmvx::kSearchChunkLength) {
            SIZE_T read = 0;
            const SIZE_T length = static_cast<SIZE_T>(std::min<uint64_t>(region.RegionSize - offset, lmvx::kSearchChunkLength));
            if (ReadProcessMemory(process, reinterpret_cast<const void*>(base + offset), chunk.data(), length, &read)) {
                total += read;
            }
        }
    });
    return total;
}

void MemorySearch() {
    constexpr SIZE_T kHeld = 64u << 20;
    void* held = nullptr;
    for (uintptr_t at = 0x20000000; !held && at < 0xC0000000; at += 0x10000000) {
        held = VirtualAlloc(reinterpret_cast<void*>(at), kHeld, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    }
    if (!held) {
        std::printf("memory search: no 64 MiB below 4 GB\n");
        return;
    }
    // Text-like content: words of letters between binary bytes, so that the scanner collects strings.
    auto* bytes = static_cast<uint8_t*>(held);
    for (SIZE_T i = 0; i < kHeld; ++i) bytes[i] = (i % 23 < 14) ? static_cast<uint8_t>('a' + i % 26) : static_cast<uint8_t>(i * 7);
    lmvx::UniqueHandle process = lmvx::OpenProcessMemory(GetCurrentProcessId());
    double bareSeconds = 1e9, searchSeconds = 1e9;
    uint64_t bareBytes = 0, searchBytes = 0;
    for (int run = 0; run < 3; ++run) {
        auto start = Clock::now();
        bareBytes = BareReadLoop(process.Get());
        bareSeconds = std::min(bareSeconds, SecondsSince(start));
        lmvx::MemorySearchState state;
        // What the search dialog does with each string (the plain find text needs no shell match) and
        // with its messages.
        struct Matcher {
            static void Found(void* pattern, uint32_t, const wchar_t* text) {
                static_cast<lmvx::SearchPattern*>(pattern)->Matches(text);
            }
            static void Pump(void*) {
                MSG message;
                while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
            }
        };
        lmvx::SearchPattern pattern(L"no string holds this");
        start = Clock::now();
        lmvx::SearchProcessMemory(process.Get(), state, {Matcher::Found, Matcher::Pump, &pattern});
        searchSeconds = std::min(searchSeconds, SecondsSince(start));
        searchBytes = state.bytesRead;
    }
    // The chunk scanner alone over the same bytes in the same chunks, without reads or queries.
    double scanSeconds = 1e9;
    for (int run = 0; run < 3; ++run) {
        size_t strings = 0;
        const lmvx::MemoryStringSink count{[](void* context, size_t, const char16_t*, size_t, bool) {
                                               ++*static_cast<size_t*>(context);
                                           },
                                           &strings};
        const auto start = Clock::now();
        for (SIZE_T at = 0; at < kHeld; at += lmvx::kSearchChunkLength + 1) {
            lmvx::ScanMemoryChunk(bytes + at, std::min<SIZE_T>(lmvx::kSearchChunkLength, kHeld - at), count);
        }
        scanSeconds = std::min(scanSeconds, SecondsSince(start));
    }
    std::printf("memory search: the chunk scanner alone %.1f MB/s\n", kHeld / 1e6 / scanSeconds);
    const double bareRate = bareBytes / 1e6 / bareSeconds;
    const double searchRate = searchBytes / 1e6 / searchSeconds;
    std::printf("memory search: %.1f MB/s (%.1f MB in %.3f s); bare read loop: %.1f MB/s (%.1f MB in %.3f s); "
                "ratio %.2f\n", searchRate, searchBytes / 1e6, searchSeconds, bareRate, bareBytes / 1e6, bareSeconds,
                searchRate / bareRate);
    VirtualFree(held, 0, MEM_RELEASE);
}

void Viewer() {
    wren::SetAppInfo(L"Lumivex Bench", L"LumivexBench", L"1.0", 1000, L"bench");
    UIL_LangModule.Init(GetModuleHandleW(nullptr), L"LumivexBench", L"bench", UIL_LANGMODULE::English);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&controls);
    lmvx_test::ChildProcess child(L"sleep 600000");
    std::vector<double> times, complete, withSymbols;
    for (int run = 0; run < 10; ++run) {
        auto context = std::make_unique<lmvx::MemoryViewerContext>();
        context->processId = child.Pid();
        const auto start = Clock::now();
        HWND viewer = UIL_LangModule.LoadDialogParam(IDD_MEMORY_VIEWER, nullptr, lmvx::MemoryViewerProc,
                                                     reinterpret_cast<LPARAM>(context.get()));
        wchar_t first[64] = {};
        SendDlgItemMessageW(viewer, IDC_MEM_ADDRESS, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(first));
        SetDlgItemTextW(viewer, IDC_MEM_ADDRESS, first);
        SendMessageW(viewer, WM_COMMAND, IDOK, 0);
        // Shown and painted: what the user sees first.
        ShowWindow(viewer, SW_SHOWNOACTIVATE);
        UpdateWindow(viewer);
        times.push_back(SecondsSince(start) * 1000);
        // The rest follows on the viewer's timer: the symbol fields, then the rest of the dump.
        bool symbolSeen = false;
        MSG message;
        while (context->symbolPending || context->dumpShown < context->dumpText.size()) {
            if (!symbolSeen && !context->symbolPending) {
                symbolSeen = true;
                withSymbols.push_back(SecondsSince(start) * 1000);
            }
            if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
                continue;
            }
            DispatchMessageW(&message);
        }
        complete.push_back(SecondsSince(start) * 1000);
        if (run == 0) std::printf("memory viewer: dump of %d characters at %ls\n",
                                  GetWindowTextLengthW(GetDlgItem(viewer, IDC_MEM_DUMP)), first);
        DestroyWindow(viewer);
    }
    // The parts: the address list alone, and one 64 KiB dump text into the viewer's edit alone.
    {
        auto context = std::make_unique<lmvx::MemoryViewerContext>();
        context->processId = child.Pid();
        HWND viewer = UIL_LangModule.LoadDialogParam(IDD_MEMORY_VIEWER, nullptr, lmvx::MemoryViewerProc,
                                                     reinterpret_cast<LPARAM>(context.get()));
        auto start = Clock::now();
        lmvx::FillAddressList32(GetDlgItem(viewer, IDC_MEM_ADDRESS), child.Pid());
        std::printf("memory viewer: address list %.1f ms\n", SecondsSince(start) * 1000);
        std::vector<char> text(4096 * 61 + 1, '0');
        for (size_t line = 1; line <= 4096; ++line) text[line * 61 - 2] = '\r', text[line * 61 - 1] = '\n';
        text.back() = '\0';
        SetDlgItemTextA(viewer, IDC_MEM_DUMP, "");
        start = Clock::now();
        SetDlgItemTextA(viewer, IDC_MEM_DUMP, text.data());
        std::printf("memory viewer: 64 KiB dump text into the edit %.1f ms\n", SecondsSince(start) * 1000);
        DestroyWindow(viewer);
    }
    auto median = [](std::vector<double>& values) {
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    };
    const double firstDump = median(times);
    std::printf("memory viewer: open to first dump shown %.1f ms (median of 10; best %.1f, worst %.1f)\n",
                firstDump, times.front(), times.back());
    std::printf("memory viewer: symbol fields filled %.1f ms, whole dump in the field %.1f ms (medians of 10)\n",
                median(withSymbols), median(complete));
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const std::wstring only = argc >= 2 ? argv[1] : L"";
    if (only == L"search" || only == L"viewer") {
        (only == L"search" ? MemorySearch : Viewer)();
        return 0;
    }
    if (argc >= 2) ImageStrings(argv[1]);
    MemorySearch();
    Viewer();
    return 0;
}
