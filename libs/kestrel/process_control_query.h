// What the process actions need to know about other processes: whether they still live, their threads,
// and whether those are suspended.
#pragma once
#include <windows.h>

#include <vector>

#include "unique_resource.h"

namespace kestrel::detail {

using UniqueHandle = UniqueResource<HandleTraits>;

// The process with the access asked for, or null when it cannot be opened or has already ended (a handle
// someone else holds keeps an ended process's id alive, and the system would still accept most calls on it).
UniqueHandle OpenLiveProcess(unsigned pid, DWORD access);
// Ids of every process at this moment.
std::vector<DWORD> AllProcessIds();
// Thread ids of the process at this moment; empty when it has none or they cannot be listed.
std::vector<DWORD> ThreadIdsOfProcess(unsigned pid);
// 1 when the thread is suspended, 0 when it runs, -1 when that cannot be found out.
int ThreadSuspendState(DWORD threadId);
// True when the process has threads and every one of them is suspended. The threads are walked through
// the process's own thread list (NtGetNextThread) rather than a system-wide snapshot, which costs a full
// process-list query each time, and the walk stops at the first thread that runs: each look at a thread
// suspends and resumes it, and a running process answers at its first thread. Falls back to the snapshot
// where the call is missing. False when the process cannot be opened.
bool AllThreadsSuspended(unsigned pid);

}  // namespace kestrel::detail
