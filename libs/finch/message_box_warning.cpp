#include "message_box_warning.h"
#include "wide_text.h"

#include <string>

namespace finch {

int ShowWarningMessageBox(HWND parent, const wchar_t* title, const wchar_t* text, const wchar_t* caption) {
    int button = 0;
    try {
        const std::wstring message = ComposeWarningMessage(title, text);
        button = MessageBoxW(parent, message.c_str(), caption, MB_OK | MB_ICONWARNING);
    } catch (...) {
        // No memory for the combined text: the message alone still tells the user what went wrong.
        button = MessageBoxW(parent, text, caption, MB_OK | MB_ICONWARNING);
    }
    return AnswerOfOkOnlyBox(button);
}

}  // namespace finch
