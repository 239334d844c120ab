// The main window's command table, the shutdown questions, the sibling tools and the show-or-hide rule.
#include <gtest/gtest.h>

#include <string>

#include "mainwnd/command_dispatch_table.h"
#include "resource.h"

namespace lmvx {
namespace {

struct RouteCase {
    unsigned command;
    CommandAction action;
};

class CommandRoutes : public ::testing::TestWithParam<RouteCase> {};

TEST_P(CommandRoutes, GoToTheirAction) {
    EXPECT_EQ(ActionOfCommand(GetParam().command), GetParam().action) << "command " << GetParam().command;
}

INSTANTIATE_TEST_SUITE_P(
    Table, CommandRoutes,
    ::testing::Values(
        RouteCase{IDM_EXIT, CommandAction::EndMainDialog}, RouteCase{IDM_EXIT_ALT, CommandAction::EndMainDialog},
        RouteCase{IDM_TERMINATE_PROCESS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_RESUME_PROCESS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_OPEN_CONTAINING_FOLDER, CommandAction::PostToDetailsPane},
        RouteCase{IDM_PAGE_OUT_PROCESS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_MEMORY_VIEWER, CommandAction::PostToDetailsPane},
        RouteCase{IDM_NETWORK_CONNECTIONS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_RESTART_PROCESS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_PROPERTIES, CommandAction::PostToDetailsPane},
        RouteCase{IDM_KERNEL_OBJECTS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_PAUSE_PROCESS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_PANE_WINDOWS, CommandAction::PostToDetailsPane},
        RouteCase{IDM_PRIORITY_REALTIME, CommandAction::SendToDetailsPane},
        RouteCase{IDM_PRIORITY_HIGH, CommandAction::SendToDetailsPane},
        RouteCase{IDM_PRIORITY_ABOVE_NORMAL, CommandAction::SendToDetailsPane},
        RouteCase{IDM_PRIORITY_NORMAL, CommandAction::SendToDetailsPane},
        RouteCase{IDM_PRIORITY_BELOW_NORMAL, CommandAction::SendToDetailsPane},
        RouteCase{IDM_PRIORITY_IDLE, CommandAction::SendToDetailsPane},
        RouteCase{201, CommandAction::Ignore},   // the priority menu has no item 201
        RouteCase{IDM_HELP, CommandAction::OpenHelp}, RouteCase{IDM_RUN, CommandAction::OpenRunDialog},
        RouteCase{IDM_ABOUT, CommandAction::ShowAbout}, RouteCase{IDM_WEBSITE, CommandAction::OpenWebSite},
        RouteCase{IDM_CHECK_UPDATES, CommandAction::OpenUpdatesPage},
        RouteCase{IDM_SORT_PROCESS_NAME, CommandAction::Sort}, RouteCase{IDM_SORT_USER_OBJECTS, CommandAction::Sort},
        RouteCase{IDM_SORT_REVERSE, CommandAction::Sort}, RouteCase{IDM_SORT_GDI_OBJECTS, CommandAction::Sort},
        RouteCase{IDM_RATE_VERY_LOW, CommandAction::RefreshRate},
        RouteCase{IDM_RATE_VERY_HIGH, CommandAction::RefreshRate},
        RouteCase{IDM_KEEP_IN_FOREGROUND, CommandAction::ToggleTopmost},
        RouteCase{IDM_REBOOT, CommandAction::ConfirmShutdown}, RouteCase{IDM_LOGOFF, CommandAction::ConfirmShutdown},
        RouteCase{IDM_POWER_OFF, CommandAction::ConfirmShutdown},
        RouteCase{IDM_TRAY_SHOW_HIDE, CommandAction::ShowOrHideMainWindow},
        RouteCase{IDM_RESUME_ALL, CommandAction::ResumeAllProcesses},
        RouteCase{IDM_TOOL_PULSEWRIGHT, CommandAction::StartSiblingTool},
        RouteCase{IDM_TOOL_HEAPWRIGHT, CommandAction::StartSiblingTool},
        RouteCase{IDM_LANGUAGE_SETTINGS, CommandAction::LanguageSettings},
        RouteCase{IDM_OPTIONS, CommandAction::OpenOptions},
        RouteCase{IDM_SHOW_DIALOG_277, CommandAction::ShowDialog277},
        RouteCase{IDM_TOGGLE_REQUEST_ELEVATION, CommandAction::ToggleRequestElevation},
        RouteCase{IDM_SHOW_PERFORMANCE_GRAPH, CommandAction::TogglePerformanceGraph},
        RouteCase{IDM_STATUSBAR_SHOW_CPU, CommandAction::ToggleStatusBarCpu},
        RouteCase{IDM_STATUSBAR_SHOW_MEMORY, CommandAction::ToggleStatusBarMemory},
        RouteCase{IDM_BRING_TO_FRONT, CommandAction::BringWindowToFront},
        RouteCase{IDM_CLOSE_WINDOW, CommandAction::CloseProcessWindow},
        RouteCase{0, CommandAction::Ignore}, RouteCase{1, CommandAction::Ignore},
        RouteCase{IDM_PRIORITY_PAUSED, CommandAction::Ignore}, RouteCase{231, CommandAction::Ignore},
        RouteCase{1000, CommandAction::Ignore}, RouteCase{1053, CommandAction::Ignore},
        RouteCase{6014, CommandAction::PostToDetailsPane}, RouteCase{65535, CommandAction::PostToDetailsPane}));

struct ShutdownCase {
    unsigned command;
    unsigned question;
    UINT flags;
};

class ShutdownQuestions : public ::testing::TestWithParam<ShutdownCase> {};

TEST_P(ShutdownQuestions, AskTheirOwnQuestionAndDoTheirOwnShutdown) {
    const auto confirmation = ShutdownConfirmationOf(GetParam().command);
    ASSERT_TRUE(confirmation.has_value());
    EXPECT_EQ(confirmation->questionId, GetParam().question);
    EXPECT_EQ(confirmation->exitFlags, GetParam().flags);
}

INSTANTIATE_TEST_SUITE_P(Commands, ShutdownQuestions,
                         ::testing::Values(ShutdownCase{IDM_REBOOT, IDS_CONFIRM_REBOOT, EWX_REBOOT},
                                           ShutdownCase{IDM_LOGOFF, IDS_CONFIRM_LOGOFF, EWX_LOGOFF},
                                           ShutdownCase{IDM_POWER_OFF, IDS_CONFIRM_POWER_OFF, EWX_POWEROFF}));

TEST(ShutdownQuestions, NoOtherCommandShutsDown) {
    for (unsigned command : {0u, 2u, 156u, 160u, 174u, 198u}) {
        EXPECT_FALSE(ShutdownConfirmationOf(command).has_value()) << command;
    }
}

TEST(SiblingTools, EachToolCommandNamesItsExecutable) {
    const auto pulse = SiblingToolOf(IDM_TOOL_PULSEWRIGHT);
    const auto heap = SiblingToolOf(IDM_TOOL_HEAPWRIGHT);
    ASSERT_TRUE(pulse && heap);
    EXPECT_EQ(std::wstring(pulse->fileName), L"pulsewright64.exe");
    EXPECT_EQ(std::wstring(heap->fileName), L"heapwright64.exe");
    EXPECT_FALSE(SiblingToolOf(IDM_OPTIONS).has_value());
}

TEST(ShowOrHide, AVisibleWindowIsHiddenAndAHiddenOneShown) {
    EXPECT_EQ(ShowHideStepFor(true, false), ShowHideStep::Hide);
    EXPECT_EQ(ShowHideStepFor(true, true), ShowHideStep::Hide);
    EXPECT_EQ(ShowHideStepFor(false, false), ShowHideStep::Show);
    EXPECT_EQ(ShowHideStepFor(false, true), ShowHideStep::ShowAndRestore);
}

}  // namespace
}  // namespace lmvx
