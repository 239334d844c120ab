// The confirmation dialogs of the risky process actions (templates 193, 200 and 219): the target's icon,
// its name in bold and its company above the action's own warning text, with OK and Cancel.
#pragma once
#include <windows.h>

namespace lmvx {

// Shows the template for the process, owned by owner; true only when the user chose OK.
bool ConfirmProcessAction(UINT templateId, unsigned pid, HWND owner);

// The procedure all three templates share; the dialog parameter is the process id.
INT_PTR CALLBACK ConfirmProcessDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
