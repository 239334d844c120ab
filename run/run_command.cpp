#include "run/run_command.h"

#include <shellapi.h>

#include "finch.h"
#include "resource.h"

namespace lmvx {

const wchar_t* RunVerb(bool asCurrentUser) { return asCurrentUser ? nullptr : L"runas"; }

std::wstring SystemMessageText(DWORD errorCode) {
    wchar_t text[256] = {};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, errorCode, 0,
                                  text, 256, nullptr);
    while (length > 0 && (text[length - 1] == L'\n' || text[length - 1] == L'\r')) --length;
    return std::wstring(text, length);
}

bool StartRunCommand(HWND owner, const wchar_t* command, bool asCurrentUser) {
    const INT_PTR result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(owner, RunVerb(asCurrentUser), command, nullptr, nullptr, SW_SHOW));
    if (!IsShellExecuteFailure(result)) return true;
    const std::wstring reason = SystemMessageText(GetLastError());
    UIP_ShowWarning(owner, UIL_LangModule.GetLangString(IDS_ERR_RUN_COMMAND), reason.c_str(),
                    UIL_LangModule.GetLangString(IDS_RUN_CAPTION));
    return false;
}

}  // namespace lmvx
