// The native structures and calls the provider reads, declared here with their documented x64 layout
// because MinGW's winternl.h leaves fields out (private usage, the I/O counters' names).
#pragma once
#include <windows.h>
#include <winternl.h>

namespace kestrel::nt {

constexpr NTSTATUS StatusSuccess = 0;
constexpr NTSTATUS StatusInfoLengthMismatch = static_cast<NTSTATUS>(0xC0000004L);
constexpr NTSTATUS StatusBufferTooSmall = static_cast<NTSTATUS>(0xC0000023L);
constexpr NTSTATUS StatusInvalidInfoClass = static_cast<NTSTATUS>(0xC0000003L);
constexpr NTSTATUS StatusBufferOverflow = static_cast<NTSTATUS>(0x80000005L);

constexpr ULONG SystemProcessInformationClass = 5;
constexpr ULONG ProcessBasicInformationClass = 0;
constexpr ULONG ProcessCommandLineInformationClass = 60;
constexpr ULONG ThreadSuspendCountClass = 35;   // Windows 8.1 and later; Wine answers it too

// One entry of SystemProcessInformation; thread entries follow it and NextEntryOffset skips them.
struct SystemProcessEntry {
    ULONG NextEntryOffset;
    ULONG NumberOfThreads;
    LARGE_INTEGER WorkingSetPrivateSize;
    ULONG HardFaultCount;
    ULONG NumberOfThreadsHighWatermark;
    ULONGLONG CycleTime;
    LARGE_INTEGER CreateTime;
    LARGE_INTEGER UserTime;
    LARGE_INTEGER KernelTime;
    UNICODE_STRING ImageName;
    LONG BasePriority;
    HANDLE UniqueProcessId;
    HANDLE InheritedFromUniqueProcessId;
    ULONG HandleCount;
    ULONG SessionId;
    ULONG_PTR UniqueProcessKey;
    SIZE_T PeakVirtualSize;
    SIZE_T VirtualSize;
    ULONG PageFaultCount;
    SIZE_T PeakWorkingSetSize;
    SIZE_T WorkingSetSize;
    SIZE_T QuotaPeakPagedPoolUsage;
    SIZE_T QuotaPagedPoolUsage;
    SIZE_T QuotaPeakNonPagedPoolUsage;
    SIZE_T QuotaNonPagedPoolUsage;
    SIZE_T PagefileUsage;
    SIZE_T PeakPagefileUsage;
    SIZE_T PrivatePageCount;
    LARGE_INTEGER ReadOperationCount;
    LARGE_INTEGER WriteOperationCount;
    LARGE_INTEGER OtherOperationCount;
    LARGE_INTEGER ReadTransferCount;
    LARGE_INTEGER WriteTransferCount;
    LARGE_INTEGER OtherTransferCount;
};
static_assert(sizeof(SystemProcessEntry) == 0x100, "x64 layout of SYSTEM_PROCESS_INFORMATION");

// One thread entry; NumberOfThreads of them follow each process entry.
struct SystemThreadEntry {
    LARGE_INTEGER KernelTime;
    LARGE_INTEGER UserTime;
    LARGE_INTEGER CreateTime;
    ULONG WaitTime;
    void* StartAddress;
    HANDLE UniqueProcess;
    HANDLE UniqueThread;
    LONG Priority;
    LONG BasePriority;
    ULONG ContextSwitches;
    ULONG ThreadState;
    ULONG WaitReason;
};
static_assert(sizeof(SystemThreadEntry) == 0x50, "x64 layout of SYSTEM_THREAD_INFORMATION");

constexpr ULONG ThreadBasicInformationClass = 0;
constexpr ULONG ThreadQuerySetWin32StartAddressClass = 9;

struct ThreadBasicInfo {
    NTSTATUS ExitStatus;
    void* TebBaseAddress;
    HANDLE UniqueProcess;
    HANDLE UniqueThread;
    ULONG_PTR AffinityMask;
    LONG Priority;
    LONG BasePriority;
};
// Where the x64 thread environment block keeps the last Win32 error and the last NTSTATUS.
constexpr SIZE_T TebLastErrorOffset = 0x68;
constexpr SIZE_T TebLastStatusOffset = 0x1250;

// The parts of the PEB and its process parameters that lead to the command line and the environment.
struct ProcessBasicInfo {
    NTSTATUS ExitStatus;
    void* PebBaseAddress;
    ULONG_PTR AffinityMask;
    LONG BasePriority;
    ULONG_PTR UniqueProcessId;
    ULONG_PTR InheritedFromUniqueProcessId;
};
constexpr SIZE_T PebProcessParametersOffset = 0x20;
constexpr SIZE_T ParametersCommandLineOffset = 0x70;
constexpr SIZE_T ParametersEnvironmentOffset = 0x80;
constexpr SIZE_T ParametersEnvironmentSizeOffset = 0x3F0;   // bytes; filled from Windows Vista on

using QuerySystemInformationFn = NTSTATUS(NTAPI*)(ULONG, void*, ULONG, ULONG*);
using QueryInformationProcessFn = NTSTATUS(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
using QueryInformationThreadFn = NTSTATUS(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);

// Looked up once in ntdll, which every process has loaded.
QuerySystemInformationFn QuerySystemInformation();
QueryInformationProcessFn QueryInformationProcess();
QueryInformationThreadFn QueryInformationThread();

}  // namespace kestrel::nt
