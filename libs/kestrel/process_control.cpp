// The process actions of the library: terminate, suspend, resume, page out and priority.
#include "platform/kestrel.h"
#include "process_control_query.h"

namespace kestrel {

namespace {

using detail::OpenLiveProcess;
using detail::UniqueHandle;

using ProcessCall = LONG(NTAPI*)(HANDLE process);

// NtSuspendProcess and NtResumeProcess are in every ntdll since Windows XP but in no import library.
ProcessCall NtProcessCall(const char* name) {
    HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll ? reinterpret_cast<ProcessCall>(reinterpret_cast<void*>(GetProcAddress(ntdll, name))) : nullptr;
}

int CallOnLiveProcess(unsigned pid, ProcessCall call) {
    if (call == nullptr) {
        SetLastError(ERROR_PROC_NOT_FOUND);
        return 0;
    }
    UniqueHandle process = OpenLiveProcess(pid, PROCESS_SUSPEND_RESUME);
    if (!process) return 0;
    if (call(process.Get()) < 0) {   // a failed NTSTATUS
        SetLastError(ERROR_ACCESS_DENIED);
        return 0;
    }
    return 1;
}

}  // namespace

int PRM_TerminateProcess(unsigned pid) {
    UniqueHandle process = OpenLiveProcess(pid, PROCESS_TERMINATE);
    return process && TerminateProcess(process.Get(), PRM_TerminatedExitCode) ? 1 : 0;
}

int PRM_SuspendProcess(unsigned pid) {
    static const ProcessCall suspend = NtProcessCall("NtSuspendProcess");
    return CallOnLiveProcess(pid, suspend);
}

int PRM_ResumeProcess(unsigned pid) {
    static const ProcessCall resume = NtProcessCall("NtResumeProcess");
    return CallOnLiveProcess(pid, resume);
}

int PRM_IsProcessSuspended(unsigned pid) {
    if (pid == GetCurrentProcessId()) return 0;   // the calling thread is running
    return detail::AllThreadsSuspended(pid) ? 1 : 0;
}

int PRM_ResumeAll() {
    int allResumed = 1;
    for (DWORD pid : detail::AllProcessIds()) {
        if (PRM_IsProcessSuspended(pid) && !PRM_ResumeProcess(pid)) allResumed = 0;
    }
    return allResumed;
}

int PRM_SetProcessWorkingSetSize(unsigned pid, unsigned long long minimum, unsigned long long maximum) {
    UniqueHandle process = OpenLiveProcess(pid, PROCESS_SET_QUOTA | PROCESS_QUERY_INFORMATION);
    if (!process) return 0;
    return SetProcessWorkingSetSize(process.Get(), static_cast<SIZE_T>(minimum), static_cast<SIZE_T>(maximum)) ? 1 : 0;
}

int PRM_SetProcessPriority(unsigned pid, unsigned priorityClass) {
    UniqueHandle process = OpenLiveProcess(pid, PROCESS_SET_INFORMATION);
    return process && SetPriorityClass(process.Get(), priorityClass) ? 1 : 0;
}

}  // namespace kestrel
