// The call stack dialog: the stack of one thread, taken once when the dialog opens, with the details of the
// selected call. It runs on a thread of its own while the opener keeps its windows alive.
#pragma once
#include <windows.h>

#include "kestrel.h"

namespace lmvx {

// One opening of the dialog; the opener allocates it zeroed and frees it when ShowCallStack returns.
struct CallStackRequest {
    HWND owner = nullptr;
    kestrel::_SI_STACKDUMP stackDump;
    unsigned threadId = 0;
    HWND dialog = nullptr;   // set when the dialog initialises
};

// Shows the stack of threadId owned by owner and dispatches the calling thread's messages until the dialog
// has ended. Returns 1 (0 when the dialog's thread could not be started).
int ShowCallStack(CallStackRequest* request, unsigned threadId, HWND owner);

}  // namespace lmvx
