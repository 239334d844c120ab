// Runs the main window on a thread of its own while the calling thread keeps pumping messages.
#pragma once
#include <windows.h>

#include "app/lmvx.h"

namespace lmvx {

// Returns the UI thread's exit code (the main dialog's result).
DWORD RunMainWindow(MainWindowStart& start, int showCommand);

}  // namespace lmvx
