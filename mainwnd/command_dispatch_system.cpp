#include "mainwnd/command_dispatch_system.h"

#include <shellapi.h>

#include <string>

#include "finch.h"
#include "mainwnd/command_dispatch_table.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

// ShellExecuteW reports success with a value above 32.
bool ShellSucceeded(HINSTANCE result) {
    return reinterpret_cast<INT_PTR>(result) > 32;
}

std::wstring ProgramFolder() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return std::wstring();
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    const size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash + 1);
}

std::wstring Format(const wchar_t* format, const wchar_t* argument) {
    wchar_t text[512];
    APIP_FormatString(text, sizeof text, format, argument);
    return text;
}

void ReportToolNotStarted(HWND mainWindow, const SiblingTool& tool, const std::wstring& reason) {
    const std::wstring title = Format(
        wren::HardcodeLangString(L"Lumivex could not start %s.", L"Lumivex konnte %s nicht starten."), tool.displayName);
    UIP_ShowWarning(mainWindow, title.c_str(), reason.c_str(), wren::GetAppName());
}

}  // namespace

void OpenHelp(HWND mainWindow) {
    const wchar_t* helpFile = UIL_LangModule.GetLangString(IDS_HELP_FILE_NAME);
    if (!ShellSucceeded(ShellExecuteW(mainWindow, nullptr, helpFile, nullptr, nullptr, SW_SHOWNORMAL))) {
        MessageBoxW(mainWindow, UIL_LangModule.GetLangString(IDS_HELP_FILE_NOT_FOUND),
                    UIL_LangModule.GetLangString(IDS_HELP), MB_ICONERROR);
    }
}

void OpenWebAddress(HWND mainWindow, const wchar_t* address) {
    ShellExecuteW(mainWindow, nullptr, address, nullptr, nullptr, SW_SHOWNORMAL);
}

void ConfirmShutdown(HWND mainWindow, unsigned commandId) {
    const auto confirmation = ShutdownConfirmationOf(commandId);
    if (!confirmation) return;
    const int answer = MessageBoxW(mainWindow, UIL_LangModule.GetLangString(confirmation->questionId),
                                   wren::GetAppName(), MB_YESNO | MB_ICONWARNING);
    // Relies on the shutdown privilege enabled at start-up.
    if (answer == IDYES) ExitWindowsEx(confirmation->exitFlags, 0);
}

void StartSiblingTool(HWND mainWindow, unsigned commandId) {
    const auto tool = SiblingToolOf(commandId);
    if (!tool) return;
    const std::wstring folder = ProgramFolder();
    const std::wstring path = folder + tool->fileName;
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
        ReportToolNotStarted(mainWindow, *tool,
                             Format(wren::HardcodeLangString(L"The file %s is not in the folder of Lumivex.",
                                                             L"Die Datei %s ist nicht im Ordner von Lumivex."),
                                    tool->fileName));
        return;
    }
    const HINSTANCE result = ShellExecuteW(mainWindow, nullptr, path.c_str(), nullptr, folder.c_str(), SW_SHOWNORMAL);
    if (!ShellSucceeded(result)) {
        ReportToolNotStarted(mainWindow, *tool, APIP_GetErrorCodeStr(GetLastError()));
    }
}

}  // namespace lmvx
