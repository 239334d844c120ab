#include "process_control_query.h"

#include <tlhelp32.h>

#include <optional>

#include "nt_api.h"
#include "system_process_buffer.h"
#include "thread_states.h"

namespace kestrel::detail {

UniqueHandle OpenLiveProcess(unsigned pid, DWORD access) {
    UniqueHandle process(OpenProcess(access | SYNCHRONIZE, FALSE, pid));
    if (!process) return process;
    if (WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0) {
        SetLastError(ERROR_INVALID_PARAMETER);   // what opening a process id that no longer exists reports
        process.Reset();
    }
    return process;
}

std::vector<DWORD> AllProcessIds() {
    std::vector<DWORD> ids;
    lmvx::UniqueFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!snapshot) return ids;
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Process32FirstW(snapshot.Get(), &entry); more; more = Process32NextW(snapshot.Get(), &entry)) {
        ids.push_back(entry.th32ProcessID);
    }
    return ids;
}

std::vector<DWORD> ThreadIdsOfProcess(unsigned pid) {
    std::vector<DWORD> ids;
    lmvx::UniqueFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    if (!snapshot) return ids;
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Thread32First(snapshot.Get(), &entry); more; more = Thread32Next(snapshot.Get(), &entry)) {
        if (entry.th32OwnerProcessID == pid) ids.push_back(entry.th32ThreadID);
    }
    return ids;
}

namespace {

// There is no portable query of a thread's suspend count: suspending it once more returns the count it
// had, and the resume right after restores it.
int SuspendStateOfOpenThread(HANDLE thread) {
    const DWORD previousCount = SuspendThread(thread);
    if (previousCount == static_cast<DWORD>(-1)) return -1;
    ResumeThread(thread);
    return previousCount > 0 ? 1 : 0;
}

using NextThreadFn = LONG(NTAPI*)(HANDLE process, HANDLE thread, ACCESS_MASK access, ULONG attributes, ULONG flags,
                                  HANDLE* next);

NextThreadFn NextThreadCall() {
    static const auto call = reinterpret_cast<NextThreadFn>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtGetNextThread")));
    return call;
}

}  // namespace

namespace {

// Calls visit(thread) for each thread of the process, opened with access (null when it could not be),
// until visit returns false.
template <typename Visit>
void ForEachThreadOf(unsigned pid, DWORD access, Visit&& visit) {
    if (const NextThreadFn nextThread = NextThreadCall()) {
        UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, pid));
        if (!process) return;
        UniqueHandle thread;
        for (;;) {
            HANDLE next = nullptr;
            if (nextThread(process.Get(), thread.Get(), access, 0, 0, &next) < 0) return;
            thread.Reset(next);
            if (!visit(thread.Get())) return;
        }
    }
    for (DWORD threadId : ThreadIdsOfProcess(pid)) {
        UniqueHandle thread(OpenThread(access, FALSE, threadId));
        if (!visit(thread.Get())) return;
    }
}

std::optional<bool> SuspendedBySuspendCounts(unsigned pid) {
    const nt::QueryInformationThreadFn query = nt::QueryInformationThread();
    if (!query) return std::nullopt;
    bool supported = true;
    bool sawThread = false;
    bool allSuspended = true;
    ForEachThreadOf(pid, THREAD_QUERY_LIMITED_INFORMATION, [&](HANDLE thread) {
        ULONG count = 0;
        const NTSTATUS status =
            thread ? query(thread, nt::ThreadSuspendCountClass, &count, sizeof count, nullptr) : nt::StatusInvalidInfoClass;
        if (thread && status == nt::StatusInvalidInfoClass) {
            supported = false;
            return false;
        }
        sawThread = true;
        allSuspended = status >= 0 && count > 0;
        return allSuspended;
    });
    if (!supported) return std::nullopt;
    return sawThread && allSuspended;
}

std::optional<bool> SuspendedByThreadStates(unsigned pid) {
    SystemProcessBuffer processes;
    if (!processes.Query()) return std::nullopt;
    std::vector<ThreadStateReading> readings;
    processes.ForEach([&](const nt::SystemProcessEntry& entry) {
        if (reinterpret_cast<ULONG_PTR>(entry.UniqueProcessId) != pid) return;
        const auto* threads = reinterpret_cast<const nt::SystemThreadEntry*>(&entry + 1);
        for (ULONG i = 0; i < entry.NumberOfThreads; ++i) {
            readings.push_back({threads[i].ThreadState, threads[i].WaitReason});
        }
    });
    return SuspendedByThreadStates(readings);
}

bool SuspendedBySuspending(unsigned pid) {
    bool sawThread = false;
    bool allSuspended = true;
    ForEachThreadOf(pid, THREAD_SUSPEND_RESUME, [&](HANDLE thread) {
        sawThread = true;
        allSuspended = thread && SuspendStateOfOpenThread(thread) == 1;
        return allSuspended;
    });
    return sawThread && allSuspended;
}

}  // namespace

bool AllThreadsSuspended(unsigned pid) {
    if (const std::optional<bool> counted = SuspendedBySuspendCounts(pid)) return *counted;
    if (const std::optional<bool> byState = SuspendedByThreadStates(pid)) return *byState;
    return SuspendedBySuspending(pid);
}

int ThreadSuspendState(DWORD threadId) {
    // Suspending a thread from itself would never return; the calling thread is running by definition.
    if (threadId == GetCurrentThreadId()) return 0;
    UniqueHandle thread(OpenThread(THREAD_SUSPEND_RESUME, FALSE, threadId));
    if (!thread) return -1;
    return SuspendStateOfOpenThread(thread.Get());
}

}  // namespace kestrel::detail
