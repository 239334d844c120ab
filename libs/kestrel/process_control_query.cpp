#include "process_control_query.h"

#include <tlhelp32.h>

#include <algorithm>

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

bool AllThreadsSuspended(unsigned pid) {
    const NextThreadFn nextThread = NextThreadCall();
    if (!nextThread) {
        const std::vector<DWORD> threads = ThreadIdsOfProcess(pid);
        return !threads.empty() && std::all_of(threads.begin(), threads.end(),
                                               [](DWORD threadId) { return ThreadSuspendState(threadId) == 1; });
    }
    UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, pid));
    if (!process) return false;
    UniqueHandle thread;
    bool sawThread = false;
    for (;;) {
        HANDLE next = nullptr;
        if (nextThread(process.Get(), thread.Get(), THREAD_SUSPEND_RESUME, 0, 0, &next) < 0) break;
        thread.Reset(next);
        if (SuspendStateOfOpenThread(thread.Get()) != 1) return false;
        sawThread = true;
    }
    return sawThread;
}

int ThreadSuspendState(DWORD threadId) {
    // Suspending a thread from itself would never return; the calling thread is running by definition.
    if (threadId == GetCurrentThreadId()) return 0;
    UniqueHandle thread(OpenThread(THREAD_SUSPEND_RESUME, FALSE, threadId));
    if (!thread) return -1;
    return SuspendStateOfOpenThread(thread.Get());
}

}  // namespace kestrel::detail
