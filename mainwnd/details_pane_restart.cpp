#include "mainwnd/details_pane_restart.h"

#include "finch.h"
#include "resource.h"
#include "run/run_command.h"

namespace lmvx {

std::wstring RestartCommandLine(const wchar_t* processCommandLine) {
    wchar_t kept[512] = {};
    APIP_FormatString(kept, sizeof(kept), L"%s", processCommandLine ? processCommandLine : L"");
    return kept;
}

namespace {

std::wstring CommandLineOf(const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    const int item = provider.GetItemByPID(pid);
    const kestrel::_TASKDATASTATIC* record = item < 0 ? nullptr : provider.GetItemStaticData(item);
    return RestartCommandLine(record ? record->GetCommandLineW() : L"");
}

bool StartCommandLine(std::wstring commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.wShowWindow = SW_SHOW;   // without STARTF_USESHOWWINDOW, as the program always started it
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started))
        return false;
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return true;
}

}  // namespace

bool RestartProcess(const kestrel::TL_PROCESSLIST& provider, unsigned pid, HWND owner, TerminateAction terminate) {
    // Read before ending: the ended process leaves the next snapshot.
    const std::wstring commandLine = CommandLineOf(provider, pid);
    if (!terminate || !terminate(pid, owner)) return false;
    if (StartCommandLine(commandLine)) return true;
    const std::wstring reason = SystemMessageText(GetLastError());
    UIP_ShowWarning(owner, UIL_LangModule.GetLangString(IDS_ERR_RESTART_PROCESS), reason.c_str(),
                    UIL_LangModule.GetLangString(IDS_RESTART_PROCESS_CAPTION));
    return false;
}

}  // namespace lmvx
