// Warning box: headline, message, warning icon and an OK button, under the caller's window caption.
#include "platform/finch.h"
#include "message_box_warning.h"
#include "unique_handle.h"

#include <commctrl.h>

namespace {

using TaskDialogIndirectFunction = HRESULT(WINAPI*)(const TASKDIALOGCONFIG*, int*, int*, BOOL*);

const wchar_t* NonEmptyOrNull(const wchar_t* text) { return text != nullptr && text[0] != L'\0' ? text : nullptr; }

// The task dialog shows the headline as its main instruction; only common controls 6 has it, and the
// program's manifest decides which version loads, so it is looked up when needed.
bool TryShowTaskDialog(HWND parent, const wchar_t* title, const wchar_t* text, const wchar_t* caption, int& button) {
    finch::UniqueModule commonControls(LoadLibraryW(L"comctl32.dll"));
    if (!commonControls) return false;
    const auto taskDialogIndirect = reinterpret_cast<TaskDialogIndirectFunction>(
        reinterpret_cast<void*>(GetProcAddress(commonControls.Get(), "TaskDialogIndirect")));
    if (taskDialogIndirect == nullptr) return false;

    TASKDIALOGCONFIG config = {};
    config.cbSize = sizeof(config);
    config.hwndParent = parent;
    config.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_POSITION_RELATIVE_TO_WINDOW;
    config.dwCommonButtons = TDCBF_OK_BUTTON;
    config.pszWindowTitle = caption;
    config.pszMainIcon = TD_WARNING_ICON;
    config.pszMainInstruction = NonEmptyOrNull(title);
    config.pszContent = NonEmptyOrNull(text);
    return SUCCEEDED(taskDialogIndirect(&config, &button, nullptr, nullptr));
}

}  // namespace

int UIP_ShowWarning(HWND parent, const wchar_t* title, const wchar_t* text, const wchar_t* caption) {
    const wchar_t* windowCaption = NonEmptyOrNull(caption) != nullptr ? caption : APIP_ExeCore.GetAppName();
    int button = 0;
    if (TryShowTaskDialog(parent, title, text, windowCaption, button)) return finch::AnswerOfOkOnlyBox(button);
    return finch::ShowWarningMessageBox(parent, title, text, windowCaption);
}
