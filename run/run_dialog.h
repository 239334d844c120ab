// The Run dialog (template 266): starts a program, document or folder the user types, as the current
// user or elevated. It runs on a thread of its own while the opener keeps handling its messages.
#pragma once
#include <windows.h>

namespace lmvx {

// Shows the dialog owned by owner and returns when it has closed; owner's thread keeps pumping meanwhile.
void OpenRunDialog(HWND owner);

INT_PTR CALLBACK RunDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx
