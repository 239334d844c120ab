#include "mainwnd/details_pane_commands.h"

#include "resource.h"

namespace lmvx {

PaneRoute RoutePaneCommand(unsigned commandId) {
    using enum PaneAction;
    switch (commandId) {
    case IDM_EXIT:
    case IDM_EXIT_ALT: return {EndPage, PaneTarget::None};
    case IDM_TERMINATE_PROCESS: return {Terminate, PaneTarget::Shown};
    case IDM_RESUME_PROCESS:
    case IDM_PAUSE_PROCESS: return {TogglePause, PaneTarget::Shown};
    case IDM_PRIORITY_REALTIME:
    case IDM_PRIORITY_HIGH:
    case IDM_PRIORITY_ABOVE_NORMAL:
    case IDM_PRIORITY_NORMAL:
    case IDM_PRIORITY_BELOW_NORMAL:
    case IDM_PRIORITY_IDLE: return {SetPriority, PaneTarget::Shown};
    case IDM_OPEN_CONTAINING_FOLDER: return {OpenFolder, PaneTarget::Shown};
    case IDM_PAGE_OUT_PROCESS: return {PageOut, PaneTarget::Selected};
    case IDM_MEMORY_VIEWER: return {MemoryViewer, PaneTarget::Selected};
    case IDM_NETWORK_CONNECTIONS: return {NetworkEndpoints, PaneTarget::Selected};
    case IDM_RESTART_PROCESS: return {Restart, PaneTarget::Selected};
    case IDM_PROPERTIES: return {Properties, PaneTarget::Shown};
    case IDM_PANE_PRIORITY_LINK: return {PriorityMenu, PaneTarget::Shown};
    case IDM_KERNEL_OBJECTS: return {KernelObjects, PaneTarget::Selected};
    case IDM_PANE_WINDOWS: return {WindowsMenu, PaneTarget::Selected};
    default: return {};
    }
}

}  // namespace lmvx
