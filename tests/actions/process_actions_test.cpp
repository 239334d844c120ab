// The process actions as the program calls them: with a hidden owner window, the confirmation dialogs
// answered by a second thread, and the outcome checked against the real process.
#include "mainwnd/process_actions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "action_test_environment.h"
#include "child_process.h"
#include "command_ids.h"
#include "dialog_answerer.h"
#include "dialog_ids.h"
#include "kestrel.h"
#include "string_ids.h"

namespace {

using actions_test::DialogAnswerer;
using actions_test::SeenBox;
using actions_test::Text;
using lmvx_test::ChildProcess;

class ProcessActions : public testing::Test {
protected:
    static void SetUpTestSuite() { actions_test::StartTestApplication(); }

    // A child that idles for longer than any test runs, already in the provider's snapshot.
    static ChildProcess StartSleeper() {
        ChildProcess child(L"sleep 600000");
        actions_test::RefreshProvider();
        return child;
    }

    const lmvx::UniqueWindow owner_ = actions_test::HiddenOwner();
};

std::wstring UnknownProcessName(unsigned pid) {
    std::wstring text = Text(IDS_UNKNOWN_PROCESS);
    const size_t placeholder = text.find(L"%d");
    if (placeholder != std::wstring::npos) text.replace(placeholder, 2, std::to_wstring(pid));
    return text;
}

// The one warning a failed action shows: its caption and its message.
void ExpectOneWarning(const std::vector<SeenBox>& seen, unsigned captionId, unsigned messageId) {
    ASSERT_EQ(1u, seen.size());
    EXPECT_EQ(Text(captionId), seen[0].caption);
    EXPECT_NE(std::wstring::npos, seen[0].AllText().find(Text(messageId))) << seen[0].AllText();
}

void ExpectConfirmation(const SeenBox& box, const wchar_t* caption, unsigned pid) {
    EXPECT_EQ(caption, box.caption);
    ASSERT_FALSE(actions_test::ProviderName(pid).empty());
    EXPECT_EQ(actions_test::ProviderName(pid), box.controlTexts.at(IDC_CONFIRM_NAME));
    EXPECT_EQ(actions_test::ProviderName(pid, true), box.controlTexts.at(IDC_CONFIRM_COMPANY));
    EXPECT_TRUE(box.hasIcon);
}

// ---- Terminate ----

TEST_F(ProcessActions, TerminateEndsTheProcessAfterOk) {
    ChildProcess child = StartSleeper();
    DialogAnswerer answerer(IDOK);
    EXPECT_EQ(1, lmvx::actions::Terminate(child.Pid(), owner_.Get()));
    ASSERT_TRUE(child.WaitForExit(10000));
    DWORD exitCode = 0;
    GetExitCodeProcess(child.Handle(), &exitCode);
    EXPECT_EQ(kestrel::PRM_TerminatedExitCode, exitCode);
    const std::vector<SeenBox> seen = answerer.Seen();
    ASSERT_EQ(1u, seen.size());
    ExpectConfirmation(seen[0], L"Terminate Process", child.Pid());
    EXPECT_NE(std::wstring::npos, seen[0].AllText().find(L"Are you sure?"));
}

// Cancelled questions change nothing and warn of nothing; the question names its target with the company
// (this test program carries the program's version resource, so it has one). This program is never paused.
TEST_F(ProcessActions, CancelledQuestionsLeaveTheProcessAsItWasAndThisProgramIsNotPaused) {
    ChildProcess child = StartSleeper();
    ASSERT_FALSE(actions_test::ProviderName(GetCurrentProcessId(), true).empty());
    {
        DialogAnswerer answerer(IDCANCEL);
        EXPECT_EQ(0, lmvx::actions::Terminate(child.Pid(), owner_.Get()));
        EXPECT_TRUE(child.IsRunning());
        lmvx::actions::Pause(child.Pid(), owner_.Get());
        EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid()));
        EXPECT_EQ(0, lmvx::actions::Terminate(GetCurrentProcessId(), owner_.Get()));
        const std::vector<SeenBox> seen = answerer.Seen();
        ASSERT_EQ(3u, seen.size());   // the questions only, no warning
        ExpectConfirmation(seen[2], L"Terminate Process", GetCurrentProcessId());
    }
    DialogAnswerer answerer(IDOK);
    EXPECT_EQ(0, lmvx::actions::Pause(GetCurrentProcessId(), owner_.Get()));
    ExpectOneWarning(answerer.Seen(), IDS_PAUSE_PROCESS, IDS_ERR_CANNOT_PAUSE_SELF);
}

// Each action asks first (naming an ended process unknown), then warns, with the program's title for a
// terminate and the action's own caption otherwise; a cancelled page out does not reach the failing call.
TEST_F(ProcessActions, EachActionOnAnEndedProcessWarns) {
    ChildProcess child = StartSleeper();
    child.End();   // the child's handle keeps its id from being reused while the test runs
    actions_test::RefreshProvider();
    {
        DialogAnswerer answerer(IDCANCEL);
        lmvx::actions::PageOut(child.Pid(), owner_.Get());
        EXPECT_EQ(1u, answerer.Seen().size());
    }
    DialogAnswerer answerer(IDOK);
    EXPECT_EQ(0, lmvx::actions::Terminate(child.Pid(), owner_.Get()));
    std::vector<SeenBox> seen = answerer.Seen();
    ASSERT_EQ(2u, seen.size());
    EXPECT_EQ(UnknownProcessName(child.Pid()), seen[0].controlTexts.at(IDC_CONFIRM_NAME));
    EXPECT_EQ(L"", seen[0].controlTexts.at(IDC_CONFIRM_COMPANY));
    EXPECT_FALSE(seen[0].hasIcon);
    ExpectOneWarning({seen[1]}, IDS_APP_TITLE, IDS_ERR_TERMINATE_PROCESS);
    lmvx::actions::Pause(child.Pid(), owner_.Get());
    seen = answerer.Seen();
    ASSERT_EQ(4u, seen.size());
    EXPECT_EQ(L"Suspend Process", seen[2].caption);
    ExpectOneWarning({seen[3]}, IDS_PAUSE_PROCESS, IDS_ERR_PAUSE_PROCESS);
    EXPECT_EQ(0, lmvx::actions::Resume(child.Pid(), owner_.Get()));
    ASSERT_EQ(5u, answerer.Seen().size());
    ExpectOneWarning({answerer.Seen()[4]}, IDS_RESUME_PROCESS, IDS_PROCESS_NOT_PAUSED);
    lmvx::actions::PageOut(child.Pid(), owner_.Get());
    ASSERT_EQ(7u, answerer.Seen().size());
    ExpectOneWarning({answerer.Seen()[6]}, IDS_PAGE_OUT_PROCESS, IDS_ERR_PAGE_OUT_PROCESS);
    EXPECT_EQ(0, lmvx::actions::SetPriority(child.Pid(), IDM_PRIORITY_HIGH, owner_.Get()));
    ASSERT_EQ(8u, answerer.Seen().size());
    ExpectOneWarning({answerer.Seen()[7]}, IDS_CHANGE_PRIORITY, IDS_ERR_CHANGE_PRIORITY);
}

// ---- Pause and resume ----

TEST_F(ProcessActions, PauseSuspendsAfterOkAndResumeUndoesOneSuspensionAtATimeWithoutAsking) {
    ChildProcess child = StartSleeper();
    {
        DialogAnswerer answerer(IDOK);
        EXPECT_EQ(0, lmvx::actions::Resume(child.Pid(), owner_.Get()));
        ExpectOneWarning(answerer.Seen(), IDS_RESUME_PROCESS, IDS_PROCESS_NOT_PAUSED);
        EXPECT_TRUE(child.IsRunning());
    }
    {
        DialogAnswerer answerer(IDOK);
        EXPECT_EQ(0, lmvx::actions::Pause(child.Pid(), owner_.Get()));
        const std::vector<SeenBox> seen = answerer.Seen();
        ASSERT_EQ(1u, seen.size());
        ExpectConfirmation(seen[0], L"Suspend Process", child.Pid());
    }
    EXPECT_TRUE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(child.Pid()));
    DialogAnswerer answerer(IDOK);
    EXPECT_EQ(0, lmvx::actions::Resume(child.Pid(), owner_.Get()));
    EXPECT_TRUE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    EXPECT_EQ(0, lmvx::actions::Resume(child.Pid(), owner_.Get()));
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(child.Pid()));
    EXPECT_TRUE(answerer.Seen().empty());
}

TEST_F(ProcessActions, ResumeAllResumesEveryPausedProcess) {
    ChildProcess first = StartSleeper();
    ChildProcess second = StartSleeper();
    ChildProcess running = StartSleeper();
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(first.Pid()));
    ASSERT_TRUE(kestrel::PRM_SuspendProcess(second.Pid()));
    DialogAnswerer answerer(IDOK);
    EXPECT_EQ(1, lmvx::actions::ResumeAll(owner_.Get()));
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(first.Pid()));
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(second.Pid()));
    EXPECT_FALSE(kestrel::PRM_IsProcessSuspended(running.Pid()));
    EXPECT_TRUE(answerer.Seen().empty());
}

// ---- Priority ----

// Each priority command sets its class without asking; other commands change nothing and say nothing; a
// process that cannot be opened (process id 0, the idle process) gets a warning, not silence. Page out asks
// and succeeds quietly (Wine accepts the trim without changing the working set, so success is what shows).
TEST_F(ProcessActions, PriorityCommandsSetTheirClassOthersNothingAndFailuresWarnPageOutAsks) {
    ChildProcess child = StartSleeper();
    const std::pair<unsigned, DWORD> cases[] = {
        {IDM_PRIORITY_IDLE, IDLE_PRIORITY_CLASS},
        {IDM_PRIORITY_BELOW_NORMAL, BELOW_NORMAL_PRIORITY_CLASS},
        {IDM_PRIORITY_NORMAL, NORMAL_PRIORITY_CLASS},
        {IDM_PRIORITY_ABOVE_NORMAL, ABOVE_NORMAL_PRIORITY_CLASS},
        {IDM_PRIORITY_HIGH, HIGH_PRIORITY_CLASS},
        {IDM_PRIORITY_REALTIME, REALTIME_PRIORITY_CLASS},
    };
    DialogAnswerer answerer(IDOK);
    for (const auto& [command, priorityClass] : cases) {
        EXPECT_EQ(1, lmvx::actions::SetPriority(child.Pid(), command, owner_.Get()));
        EXPECT_EQ(priorityClass, GetPriorityClass(child.Handle())) << "command " << command;
    }
    for (unsigned command : {201u, static_cast<unsigned>(IDM_PRIORITY_PAUSED), 199u, 0u}) {
        EXPECT_EQ(0, lmvx::actions::SetPriority(child.Pid(), command, owner_.Get())) << command;
    }
    EXPECT_EQ(static_cast<DWORD>(REALTIME_PRIORITY_CLASS), GetPriorityClass(child.Handle()));
    EXPECT_TRUE(answerer.Seen().empty());
    EXPECT_EQ(0, lmvx::actions::SetPriority(0, IDM_PRIORITY_NORMAL, owner_.Get()));
    ExpectOneWarning(answerer.Seen(), IDS_CHANGE_PRIORITY, IDS_ERR_CHANGE_PRIORITY);

    EXPECT_EQ(0, lmvx::actions::PageOut(child.Pid(), owner_.Get()));
    const std::vector<SeenBox> seen = answerer.Seen();
    ASSERT_EQ(2u, seen.size());
    ExpectConfirmation(seen[1], L"Page Out Process", child.Pid());
    EXPECT_NE(std::wstring::npos, seen[1].AllText().find(L"phyical memory once you resume"));
    EXPECT_TRUE(child.IsRunning());
}

}  // namespace
