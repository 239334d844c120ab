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
// True when the process has threads and every one of them is suspended. Looking must not disturb the
// process: the threads' suspend counts are read where the system answers that query, else their states in
// the system process list where it fills them; only where neither is known is each thread suspended and
// resumed once to learn its count. The threads are walked through the process's own thread list
// (NtGetNextThread) where it exists, and the walk stops at the first thread that runs. False when the
// process cannot be opened.
bool AllThreadsSuspended(unsigned pid);

}  // namespace kestrel::detail
