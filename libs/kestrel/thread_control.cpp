// The thread actions of the library: suspend, resume, terminate, and whether a thread is suspended.
#include "kestrel.h"

#include "process_control_query.h"

namespace kestrel {

namespace {

using detail::UniqueHandle;

// The running thread with the access asked for; null for the calling thread, which none of the actions may
// touch, and for a thread that has ended (a handle someone still holds keeps an ended thread's id open, and
// the system would accept the actions on it).
UniqueHandle OpenOtherThread(unsigned threadId, DWORD access) {
    if (threadId == GetCurrentThreadId()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return UniqueHandle();
    }
    UniqueHandle thread(OpenThread(access | SYNCHRONIZE, FALSE, threadId));
    if (thread && WaitForSingleObject(thread.Get(), 0) == WAIT_OBJECT_0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        thread.Reset();
    }
    return thread;
}

}  // namespace

int PRM_IsThreadSuspended(unsigned threadId) { return detail::ThreadSuspendState(threadId) == 1 ? 1 : 0; }

int PRM_SuspendThread(unsigned threadId) {
    UniqueHandle thread = OpenOtherThread(threadId, THREAD_SUSPEND_RESUME);
    return thread && SuspendThread(thread.Get()) != static_cast<DWORD>(-1) ? 1 : 0;
}

int PRM_ResumeThread(unsigned threadId) {
    UniqueHandle thread = OpenOtherThread(threadId, THREAD_SUSPEND_RESUME);
    return thread && ResumeThread(thread.Get()) != static_cast<DWORD>(-1) ? 1 : 0;
}

int PRM_TerminateThread(unsigned threadId) {
    UniqueHandle thread = OpenOtherThread(threadId, THREAD_TERMINATE);
    return thread && TerminateThread(thread.Get(), 1) ? 1 : 0;
}

}  // namespace kestrel
