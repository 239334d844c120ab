// The details pane as a real child window: which process each command acts on, the shown process's texts,
// its note in the registry, and the layout of its name lines.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mainwnd/details_pane.h"
#include "mainwnd/details_pane_ids.h"
#include "mainwnd/details_pane_notes.h"
#include "test_host.h"
#include "resource.h"
#include "child_process.h"

namespace {

// What the fake actions were asked to do: "<action> <pid>".
std::vector<std::wstring> g_calls;
int g_suspendedPid = 0;

void Record(const wchar_t* action, unsigned pid) { g_calls.push_back(std::wstring(action) + L" " + std::to_wstring(pid)); }
const wchar_t* FakePriorityName(unsigned priorityClass) { return priorityClass == NORMAL_PRIORITY_CLASS ? L"Normal" : L"Other"; }

lmvx::PaneActions FakeActions() {
    lmvx::PaneActions actions;
    actions.terminate = [](unsigned pid, HWND) { Record(L"terminate", pid); return 0; };
    actions.pause = [](unsigned pid, HWND) { Record(L"pause", pid); return 0; };
    actions.resume = [](unsigned pid, HWND) { Record(L"resume", pid); return 0; };
    actions.isSuspended = [](unsigned pid) { Record(L"test", pid); return static_cast<int>(pid) == g_suspendedPid ? 1 : 0; };
    actions.pageOut = [](unsigned pid, HWND) { Record(L"pageout", pid); return 0; };
    actions.setPriority = [](unsigned pid, unsigned command, HWND) { Record((L"priority" + std::to_wstring(command)).c_str(), pid); return 1; };
    actions.openProperties = [](unsigned pid, HWND) { Record(L"properties", pid); };
    actions.openKernelObjects = [](unsigned pid, HWND) { Record(L"handles", pid); };
    actions.showWindowsMenu = [](unsigned pid, int, int, HWND) { Record(L"windows", pid); return 0; };
    actions.showPriorityMenu = [](unsigned pid, int, int, HWND) { Record(L"prioritymenu", pid); };
    actions.priorityName = FakePriorityName;
    return actions;
}

std::wstring Text(HWND pane, int id) {
    wchar_t text[512] = {};
    GetDlgItemTextW(pane, id, text, 512);
    return text;
}

class DetailsPaneTest : public ::testing::Test {
protected:
    void SetUp() override {
        g_calls.clear();
        g_suspendedPid = 0;
        ASSERT_TRUE(provider.Init());
        ASSERT_TRUE(shownChild.Started() && selectedChild.Started());
        ASSERT_TRUE(provider.Update());
        host.AddRow(shownChild.Pid(), L"shown");
        host.AddRow(selectedChild.Pid(), L"selected");
        pane = lmvx::DetailsPaneCreate(host.Get(), host.List(), provider, FakeActions());
        ASSERT_NE(pane, nullptr);
        // The list selection moved on, but the pane still shows the process before it (between two cycles).
        lmvx::DetailsPaneShowProcess(pane, shownChild.Pid());
        host.SelectRow(selectedChild.Pid());
    }
    void TearDown() override { provider.Delete(); }
    void Command(unsigned id) { SendMessageW(pane, WM_COMMAND, MAKEWPARAM(id, 0), 0); }
    std::wstring Call(const wchar_t* action, const lmvx_test::ChildProcess& child) {
        return std::wstring(action) + L" " + std::to_wstring(child.Pid());
    }

    lmvx_test::ChildProcess shownChild{L"sleep 60000"};
    lmvx_test::ChildProcess selectedChild{L"sleep 60000"};
    kestrel::TL_PROCESSLIST provider;
    lmvx_test::TestMainWindow host;
    HWND pane = nullptr;
};

// Between two cycles the pane shows one process while the list has another selected: each command acts on
// the one it is meant for, and a restart whose termination is declined starts nothing.
TEST_F(DetailsPaneTest, EachCommandActsOnTheShownOrTheSelectedProcess) {
    EXPECT_EQ(lmvx::DetailsPaneShownPid(pane), shownChild.Pid());
    EXPECT_EQ(GetDlgItemInt(pane, IDC_PANE_SHOWN_PID, nullptr, FALSE), shownChild.Pid());
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(pane, IDC_PANE_SHOWN_PID)));
    EXPECT_EQ(lmvx::SelectedPidOfList(host.List()), selectedChild.Pid());

    EXPECT_EQ(SendMessageW(pane, WM_COMMAND, MAKEWPARAM(IDM_ABOUT, 0), 0), 0);
    for (unsigned ignored : {IDM_PANE_ICON_BUTTON, IDM_PRIORITY_PAUSED}) Command(ignored);
    EXPECT_TRUE(g_calls.empty()) << "other commands are ignored";
    for (unsigned command : {IDM_TERMINATE_PROCESS, IDM_PROPERTIES, IDM_PRIORITY_BELOW_NORMAL, IDM_PANE_PRIORITY_LINK,
                             IDM_PAGE_OUT_PROCESS, IDM_KERNEL_OBJECTS, IDM_PANE_WINDOWS, IDM_PAUSE_PROCESS})
        Command(command);
    g_suspendedPid = static_cast<int>(selectedChild.Pid());
    Command(IDM_RESUME_PROCESS);   // the selection is suspended: the shown process is resumed
    Command(IDM_RESTART_PROCESS);   // the fake terminate declines
    EXPECT_EQ(g_calls, (std::vector<std::wstring>{
                           Call(L"terminate", shownChild), Call(L"properties", shownChild),
                           Call(L"priority205", shownChild), Call(L"prioritymenu", shownChild),
                           Call(L"pageout", selectedChild), Call(L"handles", selectedChild),
                           Call(L"windows", selectedChild), Call(L"test", selectedChild), Call(L"pause", shownChild),
                           Call(L"test", selectedChild), Call(L"resume", shownChild),
                           Call(L"terminate", selectedChild)}));
    EXPECT_TRUE(selectedChild.IsRunning());
}

TEST_F(DetailsPaneTest, ShowsNameIconPathAndPriorityOfTheShownProcessAndFollowsTheSelection) {
    const int item = provider.GetItemByPID(shownChild.Pid());
    ASSERT_GE(item, 0);
    EXPECT_EQ(Text(pane, IDC_PANE_NAME), provider.GetItemImageName(item));
    EXPECT_EQ(Text(pane, IDC_PANE_SECOND_LINE), provider.GetItemInfoCompanyName(item));
    EXPECT_EQ(Text(pane, IDC_PANE_PATH), provider.GetItemPathName(item));
    EXPECT_EQ(Text(pane, IDC_PANE_PRIORITY_LINK), FakePriorityName(provider.GetItemProcessPriority(item)));
    EXPECT_NE(SendDlgItemMessageW(pane, IDC_PANE_PROCESS_ICON, STM_GETICON, 0, 0), 0);
    lmvx::DetailsPaneFollowSelection(pane);
    EXPECT_EQ(lmvx::DetailsPaneShownPid(pane), selectedChild.Pid());
    EXPECT_EQ(Text(pane, IDC_PANE_NAME), L"lmvx_test_child.exe");
}

TEST_F(DetailsPaneTest, NoteIsStoredUnderTheImageNameAndReadBack) {
    const std::wstring valueName = L"lmvx_test_child.exe";
    lmvx::SaveNote(valueName, L"");
    HWND notes = GetDlgItem(pane, IDC_PANE_NOTES);
    SetWindowTextW(notes, L"watch this one");
    SendMessageW(notes, EM_SETMODIFY, TRUE, 0);
    lmvx::DetailsPaneShowProcess(pane, GetCurrentProcessId());   // another image: the note is written
    EXPECT_EQ(lmvx::LoadNote(valueName), L"watch this one");
    EXPECT_NE(Text(pane, IDC_PANE_NOTES), L"watch this one");
    lmvx::DetailsPaneShowProcess(pane, selectedChild.Pid());   // same image again: the note comes back
    EXPECT_EQ(Text(pane, IDC_PANE_NOTES), L"watch this one");
    lmvx::SaveNote(valueName, L"");
    EXPECT_EQ(lmvx::LoadNote(valueName), L"");
}

TEST_F(DetailsPaneTest, NameLinesReachTenPixelsShortOfTheRightEdge) {
    for (int width : {260, 400}) {
        SetWindowPos(pane, nullptr, 0, 0, width, 500, SWP_NOZORDER | SWP_NOMOVE);
        RECT client{};
        GetClientRect(pane, &client);
        for (int id : {IDC_PANE_NAME, IDC_PANE_SECOND_LINE}) {
            RECT rect{};
            GetWindowRect(GetDlgItem(pane, id), &rect);
            MapWindowPoints(nullptr, pane, reinterpret_cast<POINT*>(&rect), 2);
            EXPECT_EQ(rect.right, client.right - 10) << id << " at " << width;
        }
    }
}

}  // namespace
