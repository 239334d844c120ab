#include "mainwnd/process_menu.h"

#include <commctrl.h>

#include "finch.h"
#include "mainwnd/process_menu_popup.h"
#include "mainwnd/process_windows.h"
#include "proclist/menu_builder.h"
#include "resource.h"

namespace lmvx {
namespace {

constexpr UINT kProcessPopupPosition = 2;

bool HasCommandLine(const kestrel::TL_PROCESSLIST& provider, int index) {
    const kestrel::_TASKDATASTATIC* data = provider.GetItemStaticData(index);
    const wchar_t* commandLine = data ? data->GetCommandLineW() : nullptr;
    return commandLine && commandLine[0] != L'\0';
}

}  // namespace

unsigned SelectedProcessId(HWND list) {
    const int row = ListView_GetNextItem(list, -1, LVNI_SELECTED);
    if (row < 0) return kNoProcess;
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    return ListView_GetItem(list, &item) ? static_cast<unsigned>(item.lParam) : kNoProcess;
}

ProcessMenuFacts GatherProcessMenuFacts(const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    ProcessMenuFacts facts;
    const int index = provider.GetItemByPID(pid);
    if (index < 0) return facts;
    facts.inSnapshot = true;
    facts.suspended = kestrel::PRM_IsProcessSuspended(pid) != 0;
    facts.ownProcess = pid == GetCurrentProcessId();
    facts.windowCount = CountProcessWindows(pid);
    facts.hasCommandLine = HasCommandLine(provider, index);
    facts.priorityMenuBuilt = true;
    return facts;
}

UniqueMenu BuildPrioritySubmenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    const int index = provider.GetItemByPID(pid);
    if (index < 0) return UniqueMenu();
    const bool suspended = kestrel::PRM_IsProcessSuspended(pid) != 0;
    return CreatePopupFromEntries(
        PriorityMenuEntries(provider.GetItemProcessPriority(index), suspended, pid == GetCurrentProcessId()));
}

UniqueMenu BuildProcessMenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    ProcessMenuFacts facts = GatherProcessMenuFacts(provider, pid);
    UniqueMenu priority = facts.inSnapshot ? BuildPrioritySubmenu(provider, pid) : UniqueMenu();
    facts.priorityMenuBuilt = static_cast<bool>(priority);
    return CreatePopupFromEntries(ProcessMenuEntries(facts), std::move(priority));
}

void RebuildProcessPopup(HWND mainWindow, const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    HMENU mainMenu = GetMenu(mainWindow);
    if (!mainMenu) return;
    UniqueMenu popup = BuildProcessMenu(provider, pid);
    if (!popup) return;
    proclist::ReplacePopupAt(mainMenu, kProcessPopupPosition, proclist::UniqueMenu(popup.Release()),
                             UIL_LangModule.GetLangString(IDS_MENU_PROCESS));
}

void ShowPriorityMenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid, int x, int y, HWND owner) {
    UniqueMenu menu = BuildPrioritySubmenu(provider, pid);
    if (menu) TrackPopupMenu(menu.Get(), 0, x, y, 0, owner, nullptr);
}

void ShowProcessContextMenu(HWND mainWindow, const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    UniqueMenu menu = BuildProcessMenu(provider, pid);
    if (!menu) return;
    POINT cursor{};
    GetCursorPos(&cursor);
    TrackPopupMenu(menu.Get(), 0, cursor.x, cursor.y, 0, mainWindow, nullptr);
}

}  // namespace lmvx
