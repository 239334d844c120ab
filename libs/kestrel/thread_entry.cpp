// PD_THREADENTRY: the figures of one thread as its list's last query found them.
#include "kestrel.h"

#include "nt_api.h"

namespace kestrel {

namespace {

SYSTEMTIME DurationAsSystemTime(unsigned long long duration100ns) {
    // A duration as a point in time after 1 January 1601, so day 1 is less than a day.
    const FILETIME asTime{static_cast<DWORD>(duration100ns), static_cast<DWORD>(duration100ns >> 32)};
    SYSTEMTIME packed{};
    FileTimeToSystemTime(&asTime, &packed);
    return packed;
}

unsigned ReadEnvironmentValue(HANDLE process, ULONG_PTR environmentBlock, SIZE_T offset) {
    unsigned value = 0;
    SIZE_T read = 0;
    if (!process || !environmentBlock) return 0;
    const void* address = reinterpret_cast<const void*>(environmentBlock + offset);
    return ReadProcessMemory(process, address, &value, sizeof value, &read) && read == sizeof value ? value : 0;
}

}  // namespace

unsigned PD_THREADENTRY::GetThreadID() const { return threadId_; }
double PD_THREADENTRY::GetCPUUsage() const { return cpuUsage_; }
double PD_THREADENTRY::GetAverageCPUUsage() const { return averageCpuUsage_; }
ULONG_PTR PD_THREADENTRY::GetStartAddress() const { return startAddress_; }
const wchar_t* PD_THREADENTRY::GetModuleName() const { return moduleName_; }
unsigned PD_THREADENTRY::GetModuleBaseAddress() const { return static_cast<unsigned>(moduleBase_); }
const wchar_t* PD_THREADENTRY::GetStartAddressText() const { return startAddressText_; }
int PD_THREADENTRY::GetPriority() const { return priority_; }

unsigned PD_THREADENTRY::GetThreadLastError() const {
    return ReadEnvironmentValue(process_, environmentBlock_, nt::TebLastErrorOffset);
}

unsigned PD_THREADENTRY::GetThreadLastStatus() const {
    return ReadEnvironmentValue(process_, environmentBlock_, nt::TebLastStatusOffset);
}

SYSTEMTIME PD_THREADENTRY::GetCreationSystemTime() const {
    SYSTEMTIME local{};
    if (creationTime_ == 0) return local;
    const FILETIME utc{static_cast<DWORD>(creationTime_), static_cast<DWORD>(creationTime_ >> 32)};
    FILETIME localTime;
    if (!FileTimeToLocalFileTime(&utc, &localTime) || !FileTimeToSystemTime(&localTime, &local)) return SYSTEMTIME{};
    return local;
}

SYSTEMTIME PD_THREADENTRY::GetRuntimeSystemTime() const { return DurationAsSystemTime(runTime_); }
SYSTEMTIME PD_THREADENTRY::GetKernelSystemTime() const { return DurationAsSystemTime(kernelTime_); }
SYSTEMTIME PD_THREADENTRY::GetUserSystemTime() const { return DurationAsSystemTime(userTime_); }
SYSTEMTIME PD_THREADENTRY::GetCPUSystemTime() const { return DurationAsSystemTime(kernelTime_ + userTime_); }

}  // namespace kestrel
