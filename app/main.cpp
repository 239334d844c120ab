// Lumivex entry point.
#include <windows.h>
#include <objbase.h>

#include "app/app_identity.h"
#include "app/component_libraries.h"
#include "app/lmvx.h"
#include "app/startup.h"
#include "app/ui_thread.h"
#include "finch.h"
#include "wren.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int showCommand) {
    using namespace lmvx;
    RestrictLibrarySearch();
    HandOverToNativeExecutable(commandLine);

    wren::SetAppInfo(kAppNameFull, kAppName, kVersionText, kVersionNumber, kAppCode);
    wren::SetBuildInfo(kBuildDate, kBuildTime, kBuildNumber);
    wren::SetStoredInstance(instance);
    wren::PostInit();

    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    SetPriorityClass(GetCurrentProcess(), HIGH_PRIORITY_CLASS);

    AnswerBuildInfoRequest(commandLine, LMVX_WIDEN(__FILE__));

    g_statusWindow = nullptr;
    APIP_ExeCore.Init(instance, commandLine, showCommand, kAppNameFull, kAppName, kAppCode, kVersionText,
                      kVersionNumber);
    APIP_ExeCore.SetBuildInfo(kBuildNumber, 1, kBuildDate, kBuildTime);

    Initialize();
    RunMainWindow(g_mainWindowStart, showCommand);
    return 1;
}
