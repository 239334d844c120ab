// What the process-data benchmarks share: a clock, the median of samples and the bare process query they
// compare against.
#pragma once
#include <windows.h>
#include <winternl.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace kestrel_bench {

constexpr ULONG SystemProcessInformationClass = 5;
constexpr NTSTATUS StatusInfoLengthMismatch = static_cast<NTSTATUS>(0xC0000004L);

using QuerySystemInformationFn = NTSTATUS(NTAPI*)(ULONG, void*, ULONG, ULONG*);

using Clock = std::chrono::steady_clock;

inline double MicrosecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

// The median of the samples: robust against the odd scheduling hiccup.
inline double Median(std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}

inline QuerySystemInformationFn SystemInformationQuery() {
    return reinterpret_cast<QuerySystemInformationFn>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation"));
}

// One bare query into a buffer kept between calls (grown when the system asks for more), as a tool that keeps
// its buffer does.
inline NTSTATUS QuerySystem(QuerySystemInformationFn query, ULONG informationClass, std::vector<unsigned char>& buffer) {
    for (;;) {
        ULONG needed = 0;
        const NTSTATUS status = query(informationClass, buffer.data(), static_cast<ULONG>(buffer.size()), &needed);
        if (status != StatusInfoLengthMismatch) return status;
        buffer.resize(std::max<size_t>(needed + needed / 4, buffer.size() * 2));
    }
}

inline NTSTATUS QueryProcesses(QuerySystemInformationFn query, std::vector<unsigned char>& buffer) {
    return QuerySystem(query, SystemProcessInformationClass, buffer);
}

}  // namespace kestrel_bench
