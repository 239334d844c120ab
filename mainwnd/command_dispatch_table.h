// Which action each command of the main window stands for: the menus, the toolbar, the tray menu and the
// context menus all send these ids. Pure lookups, so the table can be checked without a window.
#pragma once
#include <windows.h>

#include <optional>

namespace lmvx {

enum class CommandAction {
    Ignore,
    EndMainDialog,            // 2, 8
    PostToDetailsPane,        // per-process commands the pane carries out for its process
    SendToDetailsPane,        // the priority commands, synchronously
    BringWindowToFront,       // 224
    CloseProcessWindow,       // 225
    OpenHelp,                 // 9
    OpenRunDialog,            // 132
    ShowAbout,                // 141
    OpenWebSite,              // 142
    OpenUpdatesPage,          // 144
    Sort,                     // handled by the process list
    RefreshRate,              // handled by the refresh cycle
    ToggleTopmost,            // 155
    ConfirmShutdown,          // 157, 158, 159
    ShowOrHideMainWindow,     // 174
    ResumeAllProcesses,       // 198
    StartSiblingTool,         // 210, 339
    LanguageSettings,         // 211
    OpenOptions,              // 212
    ShowDialog277,            // 279
    ToggleRequestElevation,   // 280
    TogglePerformanceGraph,   // 226, the tray menu's "Show Performance Graph"
    ToggleStatusBarCpu,       // 6015
    ToggleStatusBarMemory,    // 6016
};

CommandAction ActionOfCommand(unsigned commandId);

struct ShutdownConfirmation {
    unsigned questionId;   // string id of the question
    UINT exitFlags;        // what ExitWindowsEx does on Yes
};
// The question and the kind of shutdown of commands 157 (reboot), 158 (log off) and 159 (power off).
std::optional<ShutdownConfirmation> ShutdownConfirmationOf(unsigned commandId);

struct SiblingTool {
    const wchar_t* fileName;      // beside lmvx64.exe
    const wchar_t* displayName;
};
// The tool commands 210 and 339 start.
std::optional<SiblingTool> SiblingToolOf(unsigned commandId);

// What command 174 does with the main window.
enum class ShowHideStep { Hide, Show, ShowAndRestore };
ShowHideStep ShowHideStepFor(bool visible, bool minimised);

}  // namespace lmvx
