#include "mainwnd/tray_menu_items.h"

#include "resource.h"

namespace lmvx {

std::vector<MenuEntry> TrayMenuEntries(const TrayMenuFacts& facts) {
    MenuEntry showOrHide;
    showOrHide.commandId = IDM_TRAY_SHOW_HIDE;
    showOrHide.textId = facts.mainWindowVisible ? IDS_TRAY_HIDE : IDS_TRAY_SHOW;
    showOrHide.isDefault = true;

    MenuEntry graph;
    graph.commandId = IDM_SHOW_PERFORMANCE_GRAPH;
    graph.textId = IDS_TRAY_SHOW_PERF_GRAPH;
    graph.checked = facts.showPerformanceGraph;

    MenuEntry foreground;
    foreground.commandId = IDM_KEEP_IN_FOREGROUND;
    foreground.textId = IDS_TRAY_KEEP_IN_FOREGROUND;
    foreground.checked = facts.topmost;

    MenuEntry exit;
    exit.commandId = IDM_EXIT;
    exit.textId = IDS_TRAY_EXIT;

    return {showOrHide, Separator(IDM_TRAY_SEPARATOR_1), graph, foreground, Separator(IDM_TRAY_SEPARATOR_2), exit};
}

}  // namespace lmvx
