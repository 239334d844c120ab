// Which per-process commands the details pane carries out, and on which process: the one it shows (the
// hidden PID field) or the one selected in the list. The two normally agree; the split is intended.
#pragma once

namespace lmvx {

enum class PaneAction {
    Ignore,
    EndPage,
    Terminate,
    TogglePause,      // tests the selected process, pauses or resumes the shown one (intended)
    SetPriority,
    OpenFolder,
    PageOut,
    MemoryViewer,
    NetworkEndpoints,
    Restart,
    Properties,
    PriorityMenu,
    KernelObjects,
    WindowsMenu,
};

enum class PaneTarget { None, Shown, Selected };

struct PaneRoute {
    PaneAction action = PaneAction::Ignore;
    PaneTarget target = PaneTarget::None;
};

PaneRoute RoutePaneCommand(unsigned commandId);

}  // namespace lmvx
