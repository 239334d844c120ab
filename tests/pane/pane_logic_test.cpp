// Pure rules of the details pane, the Run dialog and the toolbar.
#include <gtest/gtest.h>

#include <windows.h>
#include <shellapi.h>

#include <set>
#include <string>
#include <tuple>

#include "mainwnd/details_pane_commands.h"
#include "mainwnd/details_pane_notes.h"
#include "mainwnd/details_pane_restart.h"
#include "perf/toolbar_buttons.h"
#include "resource.h"
#include "run/run_command.h"
#include "run/run_mru.h"

namespace lmvx {
namespace {

// The routes the pane window's tests cannot watch through its action callbacks (those cover terminate,
// pause, priority, properties, page out, kernel objects, windows and restart on the real pane).
TEST(PaneCommandRouting, RoutesTheWindowTestsCannotWatch) {
    const std::tuple<unsigned, PaneAction, PaneTarget> routes[] = {
        {IDM_EXIT, PaneAction::EndPage, PaneTarget::None},
        {IDM_EXIT_ALT, PaneAction::EndPage, PaneTarget::None},
        {IDM_OPEN_CONTAINING_FOLDER, PaneAction::OpenFolder, PaneTarget::Shown},
        {IDM_MEMORY_VIEWER, PaneAction::MemoryViewer, PaneTarget::Selected},
        {IDM_NETWORK_CONNECTIONS, PaneAction::NetworkEndpoints, PaneTarget::Selected},
    };
    for (const auto& [command, action, target] : routes) {
        EXPECT_EQ(RoutePaneCommand(command).action, action) << command;
        EXPECT_EQ(RoutePaneCommand(command).target, target) << command;
    }
    // 201 is no priority, 207 ("Paused") and the third icon button have no action in the pane.
    for (unsigned command : {0u, 4u, 132u, 141u, 201u, 207u, 224u, 225u, 5001u})
        EXPECT_EQ(RoutePaneCommand(command).action, PaneAction::Ignore) << command;
}

// A restart keeps a short command line and cuts a long one to 511 characters, no line gives an empty one; a
// note is stored under the image's file name.
TEST(RestartAndNotes, CommandLineIsCutTo511CharactersAndANoteIsNamedByTheImageFileName) {
    EXPECT_EQ(RestartCommandLine(L"\"C:\\a b\\x.exe\" -n 5"), L"\"C:\\a b\\x.exe\" -n 5");
    EXPECT_EQ(RestartCommandLine(L""), L"");
    EXPECT_EQ(RestartCommandLine(nullptr), L"");
    const std::wstring line = L"prog.exe " + std::wstring(700, L'x');
    EXPECT_EQ(RestartCommandLine(line.substr(0, 512).c_str()), line.substr(0, 511));
    EXPECT_EQ(NoteValueName(L"C:\\Windows\\notepad.exe"), L"notepad.exe");
    EXPECT_EQ(NoteValueName(L"Z:/work/bin/lmvx64.exe"), L"lmvx64.exe");
    EXPECT_EQ(NoteValueName(L""), L"");
}

// A command is listed without its "\\1" suffix (one without is kept); the ordering value and other types are
// skipped. Runas only for the elevated choice; shell results up to 32 are failures; the system's message has
// no trailing line break.
TEST(RunDialog, MruEntriesVerbFailuresAndSystemMessage) {
    EXPECT_EQ(RunMruListEntry(L"a", REG_SZ, L"cmd\\1"), L"cmd");
    EXPECT_EQ(RunMruListEntry(L"b", REG_SZ, L"C:\\tools\\x.exe\\1"), L"C:\\tools\\x.exe");
    EXPECT_EQ(RunMruListEntry(L"c", REG_SZ, L"notepad"), L"notepad");
    EXPECT_EQ(RunMruListEntry(L"c", REG_SZ, L"C:\\"), L"C:\\");   // the backslash is last, not second to last
    EXPECT_EQ(RunMruListEntry(L"c", REG_SZ, L""), L"");
    EXPECT_FALSE(RunMruListEntry(L"MRUList", REG_SZ, L"ba"));
    EXPECT_FALSE(RunMruListEntry(L"a", REG_EXPAND_SZ, L"cmd\\1"));
    EXPECT_FALSE(RunMruListEntry(L"a", REG_BINARY, L"cmd\\1"));
    EXPECT_FALSE(RunMruListEntry(L"", REG_SZ, L"cmd\\1"));
    EXPECT_EQ(RunVerb(true), nullptr);
    EXPECT_STREQ(RunVerb(false), L"runas");
    EXPECT_TRUE(IsShellExecuteFailure(0));
    EXPECT_TRUE(IsShellExecuteFailure(SE_ERR_FNF));
    EXPECT_TRUE(IsShellExecuteFailure(32));
    EXPECT_FALSE(IsShellExecuteFailure(33));
    const std::wstring text = SystemMessageText(ERROR_FILE_NOT_FOUND);
    ASSERT_FALSE(text.empty());
    EXPECT_NE(text.back(), L'\n');
    EXPECT_LE(text.size(), 256u);
}

TEST(ToolbarTable, UsesEveryImageOnceInOrder) {
    int expected = 0;
    for (const ToolbarButtonSpec& button : kToolbarButtons) {
        if (button.image == kToolbarSeparator) continue;
        EXPECT_EQ(button.image, expected++);
    }
    EXPECT_EQ(expected, static_cast<int>(kToolbarImageIcons.size()));
    EXPECT_EQ(std::set<unsigned short>(kToolbarImageIcons.begin(), kToolbarImageIcons.end()).size(), 15u);
}

}  // namespace
}  // namespace lmvx
