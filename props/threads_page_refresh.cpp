// The refresh of the Threads page: the thread list's rows, then the panes for the thread at the mark.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <unordered_set>

#include "finch.h"
#include "props/properties_context.h"
#include "props/thread_texts.h"
#include "props/threads_page_parts.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

namespace {

void UpdateThreadRows(HWND list, kestrel::PD_THREADLIST& threads) {
    std::unordered_set<unsigned> listed;
    const unsigned count = threads.GetThreadCount();
    for (unsigned i = 0; i < count; ++i) {
        const kestrel::PD_THREADENTRY* thread = threads.GetThread(i);
        if (!thread) continue;
        const unsigned threadId = thread->GetThreadID();
        listed.insert(threadId);
        int row = FindRowByData(list, static_cast<LPARAM>(threadId));
        if (row < 0) row = AppendRowWithData(list, 0, static_cast<LPARAM>(threadId));
        if (row < 0) continue;
        SetCellIfChanged(list, row, 0, std::to_wstring(threadId));
        SetCellIfChanged(list, row, 1, ThreadCpuCell(thread->GetCPUUsage()));
        SetCellIfChanged(list, row, 2,
                         ThreadStartAddressCell(thread->GetStartAddressText(), thread->GetModuleName(),
                                                thread->GetStartAddress(), thread->GetModuleBaseAddress()));
    }
    DeleteRowsUnless(list, [&](LPARAM threadId) { return listed.contains(static_cast<unsigned>(threadId)); });
}

std::wstring Formatted(const wchar_t* format, auto... values) {
    wchar_t buffer[512];
    APIP_FormatString(buffer, sizeof buffer, format, values...);
    return buffer;
}

void SetField(HWND pane, int id, const std::wstring& text) { wren::SetDlgItemTextW(pane, id, text.c_str()); }

void UpdatePerformancePane(HWND pane, const kestrel::PD_THREADENTRY& thread) {
    const int priority = thread.GetPriority();
    const unsigned priorityText = ThreadPriorityTextId(priority);
    SetField(pane, IDC_THREAD_PRIORITY, priorityText ? Text(priorityText) : std::to_wstring(priority));
    const bool suspended = kestrel::PRM_IsThreadSuspended(thread.GetThreadID()) != 0;
    SetField(pane, IDM_THREAD_SUSPEND_RESUME, Text(suspended ? IDS_RESUME_THREAD_BUTTON : IDS_SUSPEND_THREAD_BUTTON));
    SetField(pane, IDC_THREAD_ID_TEXT, std::to_wstring(thread.GetThreadID()));
    SetField(pane, IDC_THREAD_CPU, ThreadCpuPercent(thread.GetCPUUsage()));
    SetField(pane, IDC_THREAD_CPU_AVERAGE, ThreadCpuPercent(thread.GetAverageCPUUsage()));

    const SYSTEMTIME creation = thread.GetCreationSystemTime();
    SYSTEMTIME today{};
    GetLocalTime(&today);
    const DateTexts dates{Text(IDS_TODAY), Text(IDS_YESTERDAY), Text(IDS_DATE_FORMAT), Text(IDS_UNKNOWN)};
    const DayTexts days{Text(IDS_ONE_DAY), Text(IDS_DAYS)};
    SetField(pane, IDC_THREAD_START_TIME, ThreadStartTimeText(creation, today, dates));
    SetField(pane, IDC_THREAD_RUNTIME, ThreadRuntimeText(thread.GetRuntimeSystemTime(), creation.wYear, days,
                                                         Text(IDS_UNKNOWN)));
    SetField(pane, IDC_THREAD_KERNEL_TIME, ThreadCpuTimeText(thread.GetKernelSystemTime(), days));
    SetField(pane, IDC_THREAD_USER_TIME, ThreadCpuTimeText(thread.GetUserSystemTime(), days));
    SetField(pane, IDC_THREAD_TOTAL_TIME, ThreadCpuTimeText(thread.GetCPUSystemTime(), days));
}

void UpdateModulePane(HWND pane, const kestrel::PD_THREADENTRY& thread) {
    const unsigned start = static_cast<unsigned>(thread.GetStartAddress());
    SetField(pane, IDC_THREAD_ABSOLUTE_OFFSET, Formatted(L"0x%.8X", start));
    SetField(pane, IDC_THREAD_MODULE_NAME, thread.GetModuleName());
    SetField(pane, IDC_THREAD_RELATIVE_OFFSET, Formatted(L"0x%X", start - thread.GetModuleBaseAddress()));
    const unsigned lastError = thread.GetThreadLastError();
    SetField(pane, IDC_THREAD_LAST_ERROR, Formatted(L"%s (%d)", APIP_GetErrorCodeStr(lastError), lastError));
    SetField(pane, IDC_THREAD_LAST_STATUS, Formatted(L"0x%.8X", thread.GetThreadLastStatus()));
}

}  // namespace

void RefreshThreadsPage(HWND page) {
    ProcessPropertiesContext* context = PageContext(page);
    HWND list = GetDlgItem(page, IDC_THREADS_LIST);
    UpdateThreadRows(list, context->threadList);
    if (ListView_GetSelectionMark(list) < 0 && ListView_GetItemCount(list) > 0) ListView_SetSelectionMark(list, 0);
    const unsigned threadId = ThreadAtSelectionMark(page);
    SetWindowLongPtrW(GetDlgItem(page, IDC_THREADS_SHOWN_ID), GWLP_USERDATA, threadId);
    const kestrel::PD_THREADENTRY* thread = context->threadList.FindThread(threadId);
    if (!thread) return;   // gone: the panes keep what they showed
    UpdatePerformancePane(ThreadsPane(page, IDC_THREADS_PANE_PERFORMANCE), *thread);
    UpdateModulePane(ThreadsPane(page, IDC_THREADS_PANE_MODULE), *thread);
    RefreshThreadWindows(GetDlgItem(ThreadsPane(page, IDC_THREADS_PANE_WINDOWS), IDC_THREAD_WINDOW_LIST), threadId);
}

}  // namespace lmvx
