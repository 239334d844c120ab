#include "mainwnd/process_actions.h"

#include "dialog_ids.h"
#include "finch.h"
#include "kestrel.h"
#include "mainwnd/confirm_dialog.h"
#include "mainwnd/priority_names.h"
#include "string_ids.h"

namespace lmvx::actions {

namespace {

void Warn(HWND owner, unsigned messageId, unsigned captionId) {
    UIP_ShowWarning(owner, L"", UIL_LangModule.GetLangString(messageId), UIL_LangModule.GetLangString(captionId));
}

}  // namespace

int Terminate(unsigned pid, HWND owner) {
    if (!ConfirmProcessAction(IDD_CONFIRM_TERMINATE, pid, owner)) return 0;
    if (kestrel::PRM_TerminateProcess(pid)) return 1;
    // The only action whose warning carries the program's title instead of the action's name.
    Warn(owner, IDS_ERR_TERMINATE_PROCESS, IDS_APP_TITLE);
    return 0;
}

int Pause(unsigned pid, HWND owner) {
    // Pausing itself would freeze the window that could resume it: refused before any question.
    if (pid == GetCurrentProcessId()) {
        Warn(owner, IDS_ERR_CANNOT_PAUSE_SELF, IDS_PAUSE_PROCESS);
        return 0;
    }
    if (!ConfirmProcessAction(IDD_CONFIRM_SUSPEND, pid, owner)) return 0;
    if (!kestrel::PRM_SuspendProcess(pid)) Warn(owner, IDS_ERR_PAUSE_PROCESS, IDS_PAUSE_PROCESS);
    return 0;
}

int Resume(unsigned pid, HWND owner) {
    if (!kestrel::PRM_IsProcessSuspended(pid)) {
        Warn(owner, IDS_PROCESS_NOT_PAUSED, IDS_RESUME_PROCESS);
        return 0;
    }
    if (!kestrel::PRM_ResumeProcess(pid)) Warn(owner, IDS_ERR_RESUME_PROCESS, IDS_RESUME_PROCESS);
    return 0;
}

int PageOut(unsigned pid, HWND owner) {
    if (!ConfirmProcessAction(IDD_CONFIRM_PAGE_OUT, pid, owner)) return 0;
    constexpr unsigned long long kTrim = ~0ULL;   // both limits all ones: empty the working set
    if (!kestrel::PRM_SetProcessWorkingSetSize(pid, kTrim, kTrim)) {
        Warn(owner, IDS_ERR_PAGE_OUT_PROCESS, IDS_PAGE_OUT_PROCESS);
    }
    return 0;
}

int SetPriority(unsigned pid, unsigned commandId, HWND owner) {
    const unsigned priorityClass = PriorityClassOfCommand(commandId);
    if (priorityClass == 0) return 0;
    // Realtime, too, is set at once: choosing it in the menu is the confirmation.
    if (kestrel::PRM_SetProcessPriority(pid, priorityClass)) return 1;
    Warn(owner, IDS_ERR_CHANGE_PRIORITY, IDS_CHANGE_PRIORITY);
    return 0;
}

int ResumeAll(HWND owner) {
    if (kestrel::PRM_ResumeAll()) return 1;
    Warn(owner, IDS_ERR_RESUME_ALL, IDS_RESUME_ALL);
    return 0;
}

}  // namespace lmvx::actions
