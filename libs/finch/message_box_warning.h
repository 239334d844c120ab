// The warning box for systems without the task dialog: a plain message box.
#pragma once
#include <windows.h>

namespace finch {

// The box has only OK: Escape and the close box answer the same, whichever kind of box was shown.
inline int AnswerOfOkOnlyBox(int button) { return button == IDCANCEL ? IDOK : button; }

// Headline and message in one text ("headline\n\nmessage"), warning icon, OK. Returns IDOK once answered.
int ShowWarningMessageBox(HWND parent, const wchar_t* title, const wchar_t* text, const wchar_t* caption);

}  // namespace finch
