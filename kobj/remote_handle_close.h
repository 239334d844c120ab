// Closing a handle inside another process from the pages: the handle is duplicated out of the process with
// DUPLICATE_CLOSE_SOURCE, which closes it there, and the local copy is closed at once.
#pragma once
#include <windows.h>

namespace lmvx::kobj {

enum class RemoteCloseResult { Closed, ProcessNotOpened, NotClosed };

RemoteCloseResult CloseHandleInProcess(unsigned pid, unsigned handleValue);

// Shows "could not close the handle" (exclamation) owned by owner.
void ShowCloseHandleFailure(HWND owner);

}  // namespace lmvx::kobj
