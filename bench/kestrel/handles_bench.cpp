// Measures _HANDLELIST::QueryHandlesProcess for a child holding 10,000 handles against one bare
// NtQuerySystemInformation (SystemExtendedHandleInformation) call, and prints the times and their ratio;
// then what each call that describing one handle needs costs, on the child's own handles, and so the least
// a first query can cost.
#include "query_timing.h"
#include "child_process.h"
#include "kestrel.h"

#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

namespace {

using namespace kestrel_bench;

constexpr int Rounds = 15;
constexpr ULONG SystemExtendedHandleInformationClass = 64;

double MillisecondsSince(Clock::time_point start) { return MicrosecondsSince(start) / 1000.0; }

using QueryObjectFn = NTSTATUS(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);

// Microseconds per call of duplicating, asking the name and the counts, and closing, over up to 2,000
// handles of the list.
void PrintCallCosts(const kestrel::_HANDLELIST& list, DWORD pid) {
    const auto queryObject =
        reinterpret_cast<QueryObjectFn>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryObject"));
    HANDLE process = OpenProcess(PROCESS_DUP_HANDLE, FALSE, pid);
    std::vector<HANDLE> copies;
    for (unsigned i = 0; i < list.GetHandleCount() && copies.size() < 2000; ++i) {
        const kestrel::_HANDLEOBJECT* entry = list.GetHandlePtr(i);
        if (std::wcscmp(entry->GetObjectTypeStr(), L"Event") == 0) copies.push_back(entry->GetRemoteHandle());
    }
    if (!process || !queryObject || copies.empty()) return;
    const double count = static_cast<double>(copies.size());
    auto start = Clock::now();
    for (HANDLE& copy : copies) DuplicateHandle(process, copy, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    const double duplicate = MicrosecondsSince(start) / count;
    alignas(8) unsigned char buffer[1024];
    start = Clock::now();
    for (HANDLE copy : copies) queryObject(copy, 1, buffer, sizeof buffer, nullptr);
    const double name = MicrosecondsSince(start) / count;
    start = Clock::now();
    for (HANDLE copy : copies) queryObject(copy, 0, buffer, 56, nullptr);
    const double counts = MicrosecondsSince(start) / count;
    start = Clock::now();
    for (HANDLE copy : copies) CloseHandle(copy);
    const double close = MicrosecondsSince(start) / count;
    CloseHandle(process);
    std::wprintf(L"per handle (us): duplicate %.1f, name %.1f, counts %.1f, close %.1f\n", duplicate, name, counts, close);
    std::wprintf(L"least a first query of 10,000 named-type handles costs (duplicate + name + close): %.0f ms\n",
                 (duplicate + name + close) * 10000 / 1000);
}

}  // namespace

int wmain() {
    const auto query = SystemInformationQuery();
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring report = std::wstring(folder) + L"handles_bench_" + std::to_wstring(GetCurrentProcessId());
    DeleteFileW(report.c_str());
    lmvx_test::ChildProcess child(L"many 10000 \"" + report + L"\"");
    while (child.IsRunning() && GetFileAttributesW(report.c_str()) == INVALID_FILE_ATTRIBUTES) Sleep(10);
    if (!query || !child.IsRunning()) {
        std::fputws(L"cannot start the child or query handles\n", stderr);
        return 1;
    }
    kestrel::_HANDLELIST list;
    list.Init();
    // The first query describes every handle; later ones describe only what changed (and files).
    const auto coldStart = Clock::now();
    list.QueryHandlesProcess(child.Pid());
    const double cold = MillisecondsSince(coldStart);

    std::vector<unsigned char> buffer(256 * 1024);
    std::vector<double> bare;
    std::vector<double> listed;
    for (int round = 0; round < Rounds; ++round) {
        const auto bareStart = Clock::now();
        QuerySystem(query, SystemExtendedHandleInformationClass, buffer);
        bare.push_back(MillisecondsSince(bareStart));
        const auto listStart = Clock::now();
        list.QueryHandlesProcess(child.Pid());
        listed.push_back(MillisecondsSince(listStart));
    }
    const double bareMedian = Median(bare);
    const double listMedian = Median(listed);
    std::wprintf(L"handles of the child:                          %lu\n", list.GetHandleCount());
    std::wprintf(L"SystemExtendedHandleInformation, median of %d: %.2f ms\n", Rounds, bareMedian);
    std::wprintf(L"QueryHandlesProcess, first query:              %.2f ms\n", cold);
    std::wprintf(L"QueryHandlesProcess, median of %d:             %.2f ms (target: under 200)\n", Rounds, listMedian);
    std::wprintf(L"ratio query / bare call:                        %.1f\n", listMedian / bareMedian);
    PrintCallCosts(list, child.Pid());
    DeleteFileW(report.c_str());
    return 0;
}
