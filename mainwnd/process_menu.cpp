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

namespace {

UniqueMenu BuildPrioritySubmenuAt(const kestrel::TL_PROCESSLIST& provider, int index, unsigned pid, bool suspended) {
    return CreatePopupFromEntries(
        PriorityMenuEntries(provider.GetItemProcessPriority(index), suspended, pid == GetCurrentProcessId()));
}

}  // namespace

UniqueMenu BuildPrioritySubmenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    const int index = provider.GetItemByPID(pid);
    if (index < 0) return UniqueMenu();
    return BuildPrioritySubmenuAt(provider, index, pid, kestrel::PRM_IsProcessSuspended(pid) != 0);
}

UniqueMenu BuildProcessMenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid, ProcessMenuFacts facts) {
    // The facts were gathered once; the submenu reuses their suspension state instead of asking again.
    const int index = facts.inSnapshot ? provider.GetItemByPID(pid) : -1;
    UniqueMenu priority = index >= 0 ? BuildPrioritySubmenuAt(provider, index, pid, facts.suspended) : UniqueMenu();
    facts.priorityMenuBuilt = static_cast<bool>(priority);
    return CreatePopupFromEntries(ProcessMenuEntries(facts), std::move(priority));
}

UniqueMenu BuildProcessMenu(const kestrel::TL_PROCESSLIST& provider, unsigned pid) {
    return BuildProcessMenu(provider, pid, GatherProcessMenuFacts(provider, pid));
}

void RebuildProcessPopup(HWND mainWindow, const kestrel::TL_PROCESSLIST& provider, unsigned pid,
                         const ProcessMenuFacts& facts) {
    HMENU mainMenu = GetMenu(mainWindow);
    if (!mainMenu) return;
    UniqueMenu popup = BuildProcessMenu(provider, pid, facts);
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
