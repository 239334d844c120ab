#include "app/startup.h"

#include <shellapi.h>

#include "app/app_identity.h"
#include "app/component_libraries.h"
#include "app/lmvx.h"
#include "app/logon_launcher.h"
#include "app/option_keys.h"
#include "app/privileges.h"
#include "app/shared_icons.h"
#include "app/startup_text.h"
#include "app/warning_dialog.h"
#include "perf/sampler.h"
#include "finch.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

// Without the debug privilege, and when the user asked for it, restart elevated; the elevated copy
// gets no command-line arguments. Returns only when this process goes on.
void RequestElevatedRestart() {
    if (!wren::regOptions.GetOptionBOOL(options::RequestElevation.name, options::RequestElevation.defaultValue)) return;
    wchar_t path[512] = {};
    GetModuleFileNameW(nullptr, path, 512);
    const auto result = reinterpret_cast<INT_PTR>(ShellExecuteW(g_statusWindow, L"runas", path, nullptr, nullptr, SW_SHOW));
    if (result > 32) ExitProcess(0);
}

void LoadLanguage() {
    if (!wren::LoadLangSettings()) wren::SelectLanguageDialog(g_statusWindow);
    UIL_LangModule.Init(wren::GetStoredInstance(), wren::GetAppName(), wren::GetAppCode(), wren::GetCurrentLangID());
    UIL_LangModule.SelectLanguage(wren::GetCurrentLangID());
}

void WarnAboutMissingShutdownPrivilege() {
    const auto& noWarn = options::ShutdownPrivilegeNoWarn;
    if (wren::regOptions.GetOptionBOOL(noWarn.name, noWarn.defaultValue)) return;
    const wchar_t* message = wren::HardcodeLangString(
        L"Lumivex was denied the Shutdown privilege. The application will run without problems but some "
        L"functionality may not be available.",
        L"Lumivex wurde das Recht zum Herunterfahren verweigert. Die Anwendung läuft ohne Probleme, aber "
        L"einige Funktionen stehen möglicherweise nicht zur Verfügung.");
    wren::regOptions.SetOptionBOOL(noWarn.name, ShowWarningDialog(g_statusWindow, message));
}

}  // namespace

void HandOverToNativeExecutable(const wchar_t* commandLine) {
    if (!wren::IsProcessInWow64()) return;
    std::wstring handOver = FormatHandOverCommandLine(commandLine);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.wShowWindow = SW_SHOW;   // the flags field stays 0, as the hand-over has always done
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, handOver.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
        return;   // no message: this process simply starts normally
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    ExitProcess(exitCode);
}

void AnswerBuildInfoRequest(const wchar_t* commandLine, const wchar_t* sourceFile) {
    if (!AsksForBuildInfo(commandLine)) return;
    const std::wstring text = FormatBuildInfo(sourceFile, 76, L"wWinMain", kBuildNumber, kBuildDate, kBuildTime);
    UIP_ShowWarning(nullptr, L"Build Information", text.c_str(), L"Orvane Lumivex");
    ExitProcess(0);
}

namespace {

// The initialisation routine's steps, in their order.
int InitializeSteps() {
    ShowStartupStatus(L"Starting...");   // fixed English: no language is loaded yet

    g_debugPrivilege = EnableDebugPrivilege();
    if (!g_debugPrivilege) RequestElevatedRestart();

    ShowStartupStatus(L"Loading Language Components...");
    LoadLanguage();

    ShowStartupStatus(L"Loading Program Components...");
    LoadComponentLibraries();

    if (!EnableShutdownPrivilege()) WarnAboutMissingShutdownPrivilege();

    SetLogonLauncher(wren::regOptions.GetOptionBOOL(options::LaunchOnCAF.name, options::LaunchOnCAF.defaultValue));

    perf::InitPerformance();

    LoadSharedIcons(wren::GetStoredInstance());
    perf::KeepPerfMonSource();

    ShowStartupStatus(UIL_LangModule.GetLangString(IDS_STATUS_INIT_PROCESS_LIST));
    g_processList.Init();

    ShowStartupStatus(UIL_LangModule.GetLangString(IDS_STATUS_CREATE_THREADS));
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_HIGHEST);

    ShowStartupStatus(UIL_LangModule.GetLangString(IDS_STATUS_LOADING));
    return 1;
}

}  // namespace

int Initialize() {
    const ComponentFailureHandler failureHandler;
    try {
        return InitializeSteps();
    } catch (...) {
        EndForMissingComponent();
    }
}

}  // namespace lmvx
