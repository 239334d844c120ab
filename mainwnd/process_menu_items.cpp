#include "mainwnd/process_menu_items.h"

#include <windows.h>

#include "mainwnd/priority_names.h"
#include "mainwnd/process_windows_text.h"
#include "resource.h"

namespace lmvx {
namespace {

MenuEntry Item(unsigned commandId, unsigned textId, bool grayed = false) {
    MenuEntry entry;
    entry.commandId = commandId;
    entry.textId = textId;
    entry.grayed = grayed;
    return entry;
}

// Pause and resume share one place: the command and text follow the process's state.
MenuEntry PauseOrResume(bool suspended, unsigned textIfRunning, unsigned textIfSuspended, bool grayed) {
    return suspended ? Item(IDM_RESUME_PROCESS, textIfSuspended, grayed) : Item(IDM_PAUSE_PROCESS, textIfRunning, grayed);
}

}  // namespace

std::vector<MenuEntry> ProcessMenuEntries(const ProcessMenuFacts& facts) {
    if (!facts.inSnapshot) {
        MenuEntry properties = Item(IDM_PROPERTIES, IDS_MENU_PROPERTIES_UNAVAILABLE, true);
        properties.isDefault = true;
        return {properties};
    }
    const bool noWindow = !WindowItemsEnabled(facts.windowCount);

    MenuEntry priority = Item(0, IDS_MENU_PRIORITY, !facts.priorityMenuBuilt);
    priority.submenu = true;
    MenuEntry properties = Item(IDM_PROPERTIES, IDS_MENU_PROPERTIES);
    properties.isDefault = true;

    return {
        PauseOrResume(facts.suspended, IDS_MENU_PAUSE_PROCESS, IDS_MENU_RESUME_PROCESS, facts.ownProcess),
        Item(IDM_PAGE_OUT_PROCESS, IDS_MENU_PAGE_OUT_PROCESS),
        Separator(),
        priority,
        Separator(),
        Item(IDM_CLOSE_WINDOW, CloseWindowTextId(facts.windowCount), noWindow),
        Item(IDM_BRING_TO_FRONT, BringToFrontTextId(facts.windowCount), noWindow),
        Separator(),
        Item(IDM_OPEN_CONTAINING_FOLDER, IDS_MENU_OPEN_CONTAINING_FOLDER),
        Separator(),
        Item(IDM_TERMINATE_PROCESS, IDS_MENU_TERMINATE_PROCESS),
        Item(IDM_RESTART_PROCESS, IDS_MENU_RESTART_PROCESS, !facts.hasCommandLine || facts.ownProcess),
        Separator(),
        properties,
    };
}

std::vector<MenuEntry> PriorityMenuEntries(unsigned priorityClass, bool suspended, bool ownProcess) {
    std::vector<MenuEntry> entries;
    for (const PriorityEntry& item : kPriorityEntries) {
        MenuEntry entry = Item(item.commandId, item.nameId);
        entry.checked = priorityClass == item.priorityClass;
        // Lumivex must never be able to lower itself to idle.
        entry.grayed = ownProcess && item.commandId == IDM_PRIORITY_IDLE;
        entries.push_back(entry);
    }
    entries.push_back(Separator());
    MenuEntry paused = PauseOrResume(suspended, IDS_MENU_PAUSED, IDS_MENU_PAUSED, ownProcess);
    paused.checked = suspended;
    entries.push_back(paused);
    return entries;
}

}  // namespace lmvx
