// The contents of the process menu and its priority submenu, decided from plain facts.
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <vector>

#include "mainwnd/process_menu_items.h"
#include "resource.h"

namespace lmvx {
namespace {

ProcessMenuFacts RunningChild(int windows) {
    ProcessMenuFacts facts;
    facts.inSnapshot = true;
    facts.windowCount = windows;
    facts.hasCommandLine = true;
    facts.priorityMenuBuilt = true;
    return facts;
}

const MenuEntry& EntryFor(const std::vector<MenuEntry>& entries, unsigned commandId) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const MenuEntry& e) { return !e.separator && !e.submenu && e.commandId == commandId; });
    EXPECT_NE(found, entries.end()) << "no item " << commandId;
    static const MenuEntry none;
    return found == entries.end() ? none : *found;
}

std::vector<unsigned> Commands(const std::vector<MenuEntry>& entries) {
    std::vector<unsigned> commands;
    for (const MenuEntry& e : entries) commands.push_back(e.separator ? 0u : e.submenu ? 1u : e.commandId);
    return commands;
}

TEST(ProcessMenu, HoldsTheItemsInOrderWithSeparatorsAndThePrioritySubmenu) {
    const auto entries = ProcessMenuEntries(RunningChild(1));
    // 1 marks the submenu's place, 0 a separator.
    const std::vector<unsigned> expected{IDM_PAUSE_PROCESS, IDM_PAGE_OUT_PROCESS, 0, 1, 0, IDM_CLOSE_WINDOW,
                                         IDM_BRING_TO_FRONT, 0, IDM_OPEN_CONTAINING_FOLDER, 0, IDM_TERMINATE_PROCESS,
                                         IDM_RESTART_PROCESS, 0, IDM_PROPERTIES};
    EXPECT_EQ(Commands(entries), expected);
    EXPECT_EQ(entries[3].textId, static_cast<unsigned>(IDS_MENU_PRIORITY));
    EXPECT_FALSE(entries[3].grayed);
}

TEST(ProcessMenu, PropertiesIsTheOnlyDefaultItem) {
    const auto entries = ProcessMenuEntries(RunningChild(1));
    EXPECT_EQ(std::count_if(entries.begin(), entries.end(), [](const MenuEntry& e) { return e.isDefault; }), 1);
    EXPECT_TRUE(EntryFor(entries, IDM_PROPERTIES).isDefault);
    EXPECT_EQ(EntryFor(entries, IDM_PROPERTIES).textId, static_cast<unsigned>(IDS_MENU_PROPERTIES));
}

struct WindowCountCase {
    int windows;
    unsigned closeText;
    unsigned frontText;
    bool grayed;
};

class ProcessMenuByWindowCount : public ::testing::TestWithParam<WindowCountCase> {};

TEST_P(ProcessMenuByWindowCount, WindowItemsNameTheChoiceAndGrayWithoutWindows) {
    const WindowCountCase c = GetParam();
    const auto entries = ProcessMenuEntries(RunningChild(c.windows));
    EXPECT_EQ(EntryFor(entries, IDM_CLOSE_WINDOW).textId, c.closeText);
    EXPECT_EQ(EntryFor(entries, IDM_BRING_TO_FRONT).textId, c.frontText);
    EXPECT_EQ(EntryFor(entries, IDM_CLOSE_WINDOW).grayed, c.grayed);
    EXPECT_EQ(EntryFor(entries, IDM_BRING_TO_FRONT).grayed, c.grayed);
}

INSTANTIATE_TEST_SUITE_P(
    Counts, ProcessMenuByWindowCount,
    ::testing::Values(WindowCountCase{0, IDS_MENU_CLOSE_WINDOW, IDS_MENU_BRING_TO_FRONT, true},
                      WindowCountCase{1, IDS_MENU_CLOSE_WINDOW, IDS_MENU_BRING_TO_FRONT, false},
                      WindowCountCase{2, IDS_MENU_CLOSE_WINDOW_MANY, IDS_MENU_BRING_TO_FRONT_MANY, false},
                      WindowCountCase{7, IDS_MENU_CLOSE_WINDOW_MANY, IDS_MENU_BRING_TO_FRONT_MANY, false}));

TEST(ProcessMenu, RestartIsGrayedWithoutACommandLine) {
    auto facts = RunningChild(1);
    EXPECT_FALSE(EntryFor(ProcessMenuEntries(facts), IDM_RESTART_PROCESS).grayed);
    facts.hasCommandLine = false;
    EXPECT_TRUE(EntryFor(ProcessMenuEntries(facts), IDM_RESTART_PROCESS).grayed);
}

TEST(ProcessMenu, PriorityIsAGrayedPopupWhenItsSubmenuCouldNotBeBuilt) {
    auto facts = RunningChild(1);
    facts.priorityMenuBuilt = false;
    const auto entries = ProcessMenuEntries(facts);
    const auto priority = std::find_if(entries.begin(), entries.end(), [](const MenuEntry& e) { return e.submenu; });
    ASSERT_NE(priority, entries.end());
    EXPECT_TRUE(priority->grayed);
}

struct PriorityCase {
    unsigned priorityClass;
    unsigned checkedCommand;   // 0: none
};

class PrioritySubmenuCheck : public ::testing::TestWithParam<PriorityCase> {};

TEST_P(PrioritySubmenuCheck, ChecksExactlyTheClassInEffect) {
    const auto entries = PriorityMenuEntries(GetParam().priorityClass, false, false);
    std::vector<unsigned> checked;
    for (const MenuEntry& e : entries) {
        if (e.checked) checked.push_back(e.commandId);
    }
    if (GetParam().checkedCommand == 0) {
        EXPECT_TRUE(checked.empty());
    } else {
        EXPECT_EQ(checked, std::vector<unsigned>{GetParam().checkedCommand});
    }
}

INSTANTIATE_TEST_SUITE_P(
    Classes, PrioritySubmenuCheck,
    ::testing::Values(PriorityCase{REALTIME_PRIORITY_CLASS, IDM_PRIORITY_REALTIME},
                      PriorityCase{HIGH_PRIORITY_CLASS, IDM_PRIORITY_HIGH},
                      PriorityCase{ABOVE_NORMAL_PRIORITY_CLASS, IDM_PRIORITY_ABOVE_NORMAL},
                      PriorityCase{NORMAL_PRIORITY_CLASS, IDM_PRIORITY_NORMAL},
                      PriorityCase{BELOW_NORMAL_PRIORITY_CLASS, IDM_PRIORITY_BELOW_NORMAL},
                      PriorityCase{IDLE_PRIORITY_CLASS, IDM_PRIORITY_IDLE}, PriorityCase{0, 0},
                      PriorityCase{0x1234, 0}));

TEST(PrioritySubmenu, SixClassesInOrderThenASeparatorAndPaused) {
    const auto entries = PriorityMenuEntries(NORMAL_PRIORITY_CLASS, false, false);
    const std::vector<unsigned> expected{IDM_PRIORITY_REALTIME, IDM_PRIORITY_HIGH, IDM_PRIORITY_ABOVE_NORMAL,
                                         IDM_PRIORITY_NORMAL, IDM_PRIORITY_BELOW_NORMAL, IDM_PRIORITY_IDLE, 0,
                                         IDM_PAUSE_PROCESS};
    EXPECT_EQ(Commands(entries), expected);
    const std::vector<unsigned> texts{IDS_PRIORITY_REALTIME, IDS_PRIORITY_HIGH, IDS_PRIORITY_ABOVE_NORMAL,
                                      IDS_PRIORITY_NORMAL, IDS_PRIORITY_BELOW_NORMAL, IDS_PRIORITY_IDLE};
    for (size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(entries[i].textId, texts[i]);
    EXPECT_EQ(entries.back().textId, static_cast<unsigned>(IDS_MENU_PAUSED));
    EXPECT_FALSE(entries.back().checked);
}

}  // namespace
}  // namespace lmvx
