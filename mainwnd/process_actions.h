// The actions that change another process: terminate, pause, resume, page out, set priority, and resume
// every paused process. Each takes the target's process id and the window that owns its confirmation
// dialog and its warning; each reports its own failure in a warning box, so callers need not.
#pragma once
#include <windows.h>

namespace lmvx::actions {

// Asks with dialog 193, then ends the process. 1 when it was ended, 0 when cancelled or failed.
int Terminate(unsigned pid, HWND owner);
// Asks with dialog 200, then suspends every thread. Refuses this program's own process. Always 0.
int Pause(unsigned pid, HWND owner);
// Resumes a paused process; a process that is not paused is left alone with a warning. Always 0.
int Resume(unsigned pid, HWND owner);
// Asks with dialog 219, then trims the working set. Always 0.
int PageOut(unsigned pid, HWND owner);
// commandId is one of the six priority commands (IDM_PRIORITY_REALTIME ... IDM_PRIORITY_IDLE); any other id
// returns 0 without a word. Realtime is set without an extra question. 1 on success.
int SetPriority(unsigned pid, unsigned commandId, HWND owner);
// Command "Resume all Paused Processes": resumes every paused process; warns when one could not be resumed.
// 1 when all were resumed.
int ResumeAll(HWND owner);

}  // namespace lmvx::actions
