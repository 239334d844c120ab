// Pure logic of the main window: the command table at its edges, the contents of the process menu and its
// priority submenu decided from plain facts, and where the children go for a client size.
// (Each command's own effect is tested on the running main window.)
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <vector>

#include "mainwnd/command_dispatch_table.h"
#include "mainwnd/main_window_layout.h"
#include "mainwnd/process_menu_items.h"
#include "resource.h"

namespace lmvx {
namespace {

// Ids no menu uses are ignored; above the table the pane gets the command (its own buttons and links use ids
// there); no other command shuts anything down.
TEST(CommandRoutes, IdsNoMenuUsesAreIgnoredOrGoToTheDetailsPaneAndNothingElseShutsDown) {
    for (unsigned command : {0u, 1u, 201u, static_cast<unsigned>(IDM_PRIORITY_PAUSED), 231u, 1000u, 1053u}) {
        EXPECT_EQ(ActionOfCommand(command), CommandAction::Ignore) << command;
    }
    EXPECT_EQ(ActionOfCommand(6014), CommandAction::PostToDetailsPane);
    EXPECT_EQ(ActionOfCommand(65535), CommandAction::PostToDetailsPane);
    for (unsigned command : {0u, 2u, 156u, 160u, 174u, 198u}) {
        EXPECT_FALSE(ShutdownConfirmationOf(command).has_value()) << command;
    }
}

ProcessMenuFacts RunningChild(int windows) {
    return ProcessMenuFacts{.inSnapshot = true, .windowCount = windows, .hasCommandLine = true, .priorityMenuBuilt = true};
}

const MenuEntry& EntryFor(const std::vector<MenuEntry>& entries, unsigned commandId) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const MenuEntry& e) { return !e.separator && !e.submenu && e.commandId == commandId; });
    EXPECT_NE(found, entries.end()) << "no item " << commandId;
    static const MenuEntry none;
    return found == entries.end() ? none : *found;
}

// Each entry's command, 1 for the submenu's place, 0 for a separator.
std::vector<unsigned> Commands(const std::vector<MenuEntry>& entries) {
    std::vector<unsigned> commands;
    for (const MenuEntry& e : entries) commands.push_back(e.separator ? 0u : e.submenu ? 1u : e.commandId);
    return commands;
}

// The items in order with separators and the priority submenu, and a single default item.
TEST(ProcessMenu, HoldsTheItemsInOrderGrayedAndNamedByTheFacts) {
    const auto entries = ProcessMenuEntries(RunningChild(1));
    const std::vector<unsigned> expected{IDM_PAUSE_PROCESS, IDM_PAGE_OUT_PROCESS, 0, 1, 0, IDM_CLOSE_WINDOW,
                                         IDM_BRING_TO_FRONT, 0, IDM_OPEN_CONTAINING_FOLDER, 0, IDM_TERMINATE_PROCESS,
                                         IDM_RESTART_PROCESS, 0, IDM_PROPERTIES};
    EXPECT_EQ(Commands(entries), expected);
    EXPECT_EQ(std::count_if(entries.begin(), entries.end(), [](const MenuEntry& e) { return e.isDefault; }), 1);
    EXPECT_EQ(EntryFor(entries, IDM_PROPERTIES).textId, static_cast<unsigned>(IDS_MENU_PROPERTIES));

    // The window items name the choice (one window or many) and are grayed without windows; Restart is grayed
    // without a command line; Priority is a grayed popup when its submenu could not be built.
    const struct { int windows; unsigned closeText, frontText; bool grayed; } counts[] = {
        {1, IDS_MENU_CLOSE_WINDOW, IDS_MENU_BRING_TO_FRONT, false},
        {2, IDS_MENU_CLOSE_WINDOW_MANY, IDS_MENU_BRING_TO_FRONT_MANY, false},
        {7, IDS_MENU_CLOSE_WINDOW_MANY, IDS_MENU_BRING_TO_FRONT_MANY, false}};
    for (const auto& c : counts) {
        SCOPED_TRACE(c.windows);
        const auto windowEntries = ProcessMenuEntries(RunningChild(c.windows));
        EXPECT_EQ(EntryFor(windowEntries, IDM_CLOSE_WINDOW).textId, c.closeText);
        EXPECT_EQ(EntryFor(windowEntries, IDM_BRING_TO_FRONT).textId, c.frontText);
        EXPECT_EQ(EntryFor(windowEntries, IDM_CLOSE_WINDOW).grayed, c.grayed);
        EXPECT_EQ(EntryFor(windowEntries, IDM_BRING_TO_FRONT).grayed, c.grayed);
    }
    auto facts = RunningChild(1);
    EXPECT_FALSE(EntryFor(ProcessMenuEntries(facts), IDM_RESTART_PROCESS).grayed);
    facts.hasCommandLine = false;
    EXPECT_TRUE(EntryFor(ProcessMenuEntries(facts), IDM_RESTART_PROCESS).grayed);
    facts.priorityMenuBuilt = false;
    EXPECT_TRUE(ProcessMenuEntries(facts)[3].grayed) << "the priority popup";
}

// Six classes in order, a separator and Paused; exactly the class in effect is checked, none for a value
// that is no class.
TEST(PrioritySubmenu, ClassesInOrderThenPausedAndTheClassInEffectChecked) {
    const auto entries = PriorityMenuEntries(NORMAL_PRIORITY_CLASS, false, false);
    const std::vector<unsigned> expected{IDM_PRIORITY_REALTIME, IDM_PRIORITY_HIGH, IDM_PRIORITY_ABOVE_NORMAL,
                                         IDM_PRIORITY_NORMAL, IDM_PRIORITY_BELOW_NORMAL, IDM_PRIORITY_IDLE, 0,
                                         IDM_PAUSE_PROCESS};
    EXPECT_EQ(Commands(entries), expected);
    const std::vector<unsigned> texts{IDS_PRIORITY_REALTIME, IDS_PRIORITY_HIGH, IDS_PRIORITY_ABOVE_NORMAL,
                                      IDS_PRIORITY_NORMAL, IDS_PRIORITY_BELOW_NORMAL, IDS_PRIORITY_IDLE};
    for (size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(entries[i].textId, texts[i]);
    const std::pair<unsigned, unsigned> classes[] = {
        {REALTIME_PRIORITY_CLASS, IDM_PRIORITY_REALTIME},  {HIGH_PRIORITY_CLASS, IDM_PRIORITY_HIGH},
        {ABOVE_NORMAL_PRIORITY_CLASS, IDM_PRIORITY_ABOVE_NORMAL}, {NORMAL_PRIORITY_CLASS, IDM_PRIORITY_NORMAL},
        {BELOW_NORMAL_PRIORITY_CLASS, IDM_PRIORITY_BELOW_NORMAL}, {IDLE_PRIORITY_CLASS, IDM_PRIORITY_IDLE},
        {0, 0}, {0x1234, 0}};
    for (const auto& [priorityClass, command] : classes) {
        std::vector<unsigned> checked;
        for (const MenuEntry& e : PriorityMenuEntries(priorityClass, false, false)) {
            if (e.checked) checked.push_back(e.commandId);
        }
        EXPECT_EQ(checked, command ? std::vector<unsigned>{command} : std::vector<unsigned>{}) << priorityClass;
    }
}

int Width(const RECT& r) { return r.right - r.left; }
int Height(const RECT& r) { return r.bottom - r.top; }

// All four children lie inside the client area and none overlaps another.
void ExpectTiled(const MainWindowLayout& layout, int width, int height) {
    const RECT all[] = {layout.toolbar, layout.detailsPane, layout.list, layout.statusBar};
    for (const RECT& r : all) {
        EXPECT_TRUE(r.left >= 0 && r.top >= 0 && r.right <= width && r.bottom <= height && Width(r) >= 0 && Height(r) >= 0);
    }
    for (size_t i = 0; i < 4; ++i) {
        for (size_t j = i + 1; j < 4; ++j) {
            RECT overlap;
            EXPECT_FALSE(IntersectRect(&overlap, &all[i], &all[j])) << i << " overlaps " << j;
        }
    }
}

// The default window's client area and a maximised window on common screens: the bars keep their height, the
// pane its width, and the list takes the rest of the band between the bars.
TEST(MainWindowLayout, BarsKeepTheirHeightAndTheListTakesTheRest) {
    for (const auto& [width, height] : {std::pair{640, 514}, {1280, 740}, {1920, 1017}}) {
        SCOPED_TRACE(width);
        const MainWindowLayoutInput input{width, height, 26, 22, 180};
        const MainWindowLayout layout = ComputeMainWindowLayout(input);
        ExpectTiled(layout, width, height);
        EXPECT_EQ(Height(layout.toolbar), input.toolbarHeight);
        EXPECT_EQ(Height(layout.statusBar), input.statusBarHeight);
        EXPECT_EQ(layout.statusBar.bottom, height);
        EXPECT_EQ(Width(layout.detailsPane), input.detailsPaneWidth);
        EXPECT_EQ(Width(layout.detailsPane) + Width(layout.list), width);
        EXPECT_EQ(Height(layout.list), height - input.toolbarHeight - input.statusBarHeight);
        EXPECT_EQ(layout.list.top, layout.toolbar.bottom);
        EXPECT_EQ(layout.list.left, layout.detailsPane.right);
    }
}

// The pane gives way before the list gets narrower than its minimum, and goes in a window narrower than
// that; bars taller than the window leave no negative rectangle; without a pane the list spans the width.
TEST(MainWindowLayout, NarrowAndLowWindowsAndNoPane) {
    MainWindowLayout layout = ComputeMainWindowLayout(MainWindowLayoutInput{300, 400, 0, 0, 250});
    EXPECT_EQ(Width(layout.list), kMinimumListWidth);
    EXPECT_EQ(Width(layout.detailsPane), 300 - kMinimumListWidth);
    ExpectTiled(layout, 300, 400);
    layout = ComputeMainWindowLayout(MainWindowLayoutInput{120, 400, 0, 0, 250});
    EXPECT_EQ(Width(layout.detailsPane), 0);
    EXPECT_EQ(Width(layout.list), 120);
    ExpectTiled(ComputeMainWindowLayout(MainWindowLayoutInput{400, 30, 26, 22, 100}), 400, 30);
    ExpectTiled(ComputeMainWindowLayout(MainWindowLayoutInput{-4, -4, -1, -1, -1}), 0, 0);
    layout = ComputeMainWindowLayout(640, 480, 30, 22);
    EXPECT_EQ(layout.list.left, 0);
    EXPECT_EQ(layout.list.right, 640);
    EXPECT_EQ(Width(layout.detailsPane), 0);
}

}  // namespace
}  // namespace lmvx
