// The main window's command table at its edges: ids no menu uses, and the commands that shut nothing down.
// (Each command's own effect is tested on the running main window.)
#include <gtest/gtest.h>

#include "mainwnd/command_dispatch_table.h"
#include "resource.h"

namespace lmvx {
namespace {

TEST(CommandRoutes, IdsNoMenuUsesAreIgnoredOrGoToTheDetailsPane) {
    for (unsigned command : {0u, 1u, 201u, static_cast<unsigned>(IDM_PRIORITY_PAUSED), 231u, 1000u, 1053u}) {
        EXPECT_EQ(ActionOfCommand(command), CommandAction::Ignore) << command;
    }
    // Above the table the pane gets the command: its own buttons and links use ids there.
    EXPECT_EQ(ActionOfCommand(6014), CommandAction::PostToDetailsPane);
    EXPECT_EQ(ActionOfCommand(65535), CommandAction::PostToDetailsPane);
}

TEST(ShutdownQuestions, NoOtherCommandShutsDown) {
    for (unsigned command : {0u, 2u, 156u, 160u, 174u, 198u}) {
        EXPECT_FALSE(ShutdownConfirmationOf(command).has_value()) << command;
    }
}

}  // namespace
}  // namespace lmvx
