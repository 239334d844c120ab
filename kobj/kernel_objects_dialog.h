// The "Kernel Objects" dialog: every handle of one process, with the selected one in detail below, on a
// dialog thread of its own while the opener keeps pumping its messages.
#pragma once
#include <windows.h>

#include "kestrel.h"

namespace lmvx::kobj {

// The shell's "open containing folder" operation, handed in by the program.
using OpenFolderFn = int (*)(const wchar_t* path);

// What one open dialog works on; the list lives exactly as long as the dialog's thread.
struct KernelObjectsContext {
    kestrel::_HANDLELIST list;
    HWND owner = nullptr;
    unsigned processId = 0;
    HWND dialog = nullptr;
    OpenFolderFn openFolder = nullptr;
};

// Shows the dialog for the process and returns when it has been closed (1). openFolder may be null.
int ShowHandleListDialog(unsigned processId, HWND owner, OpenFolderFn openFolder);

INT_PTR CALLBACK KernelObjectsDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::kobj
