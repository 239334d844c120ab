// The Performance page: CPU usage with its bar, priority, run time, CPU times, I/O counts and rates and the
// page faults of the process, with its CPU history. Polls the program's process list every 100 ms and
// writes a field only when its text changes.
#include <windows.h>
#include <commctrl.h>

#include "kestrel.h"
#include "props/page_common.h"
#include "props/polling_page.h"
#include "props/page_services.h"
#include "props/page_texts.h"
#include "props/process_info_pages.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

std::wstring PriorityText(unsigned priorityClass) {
    const auto name = CurrentPageServices().priorityName;
    const wchar_t* text = name ? name(priorityClass) : L"";
    return text && *text ? text : L"n/a";
}

void SetDurationIfAny(HWND page, int controlId, const SYSTEMTIME& duration) {
    if (!IsEmptyDuration(duration)) SetFieldIfChanged(page, controlId, DurationText(duration, true));
}

struct IoKind {
    int countField;
    int rateField;
    unsigned long long (kestrel::_TASKDATADYNAMIC::*bytes)() const;
    unsigned long long (kestrel::_TASKDATADYNAMIC::*operations)() const;
    unsigned (kestrel::_TASKDATADYNAMIC::*delta)() const;
};

using Record = kestrel::_TASKDATADYNAMIC;
constexpr IoKind kIoKinds[] = {
    {IDC_PERF_WRITE_OPERATIONS, IDC_PERF_WRITE_DELTA, &Record::GetIOWriteTransferBytes,
     &Record::GetIOWriteOperationCount, &Record::GetIOWriteTransferDelta},
    {IDC_PERF_READ_OPERATIONS, IDC_PERF_READ_DELTA, &Record::GetIOReadTransferBytes, &Record::GetIOReadOperationCount,
     &Record::GetIOReadTransferDelta},
    {IDC_PERF_OTHER_OPERATIONS, IDC_PERF_OTHER_DELTA, &Record::GetIOOtherTransferBytes,
     &Record::GetIOOtherOperationCount, &Record::GetIOOtherTransferDelta},
};

// A kind of I/O the process has not done keeps "n/a" in both of its fields. The field shows the operation
// count only, by design; the counts are printed in full, also beyond 2^31.
void UpdateIo(HWND page, const Record& record) {
    for (const IoKind& kind : kIoKinds) {
        if ((record.*kind.bytes)() == 0) continue;
        SetFieldIfChanged(page, kind.countField, FormatText(L"%I64u", (record.*kind.operations)()));
        SetFieldIfChanged(page, kind.rateField, FormatText(L"%d KB/s", (record.*kind.delta)() >> 10));
    }
    if (record.GetPagefaultCount() != 0)
        SetFieldIfChanged(page, IDC_PERF_PAGEFAULTS, FormatText(L"%d", record.GetPagefaultCount()));
}

void UpdateFields(HWND page, const kestrel::TL_PROCESSLIST& list, int item) {
    const unsigned usage = list.GetItemCPUUsage(item);
    SetFieldIfChanged(page, IDC_PERF_CPU_USAGE, FormatText(L"%d %%", usage));
    SetBarIfChanged(page, IDC_PERF_CPU_BAR, usage);
    SetFieldIfChanged(page, IDC_PERF_PRIORITY, PriorityText(list.GetItemProcessPriority(item)));
    if (IsKnownCreationTime(list.GetItemCreationTime(item)))
        SetFieldIfChanged(page, IDC_PERF_RUNTIME, DurationText(list.GetItemRuntime(item), false));
    SetDurationIfAny(page, IDC_PERF_KERNEL_TIME, list.GetItemKernelTime(item));
    SetDurationIfAny(page, IDC_PERF_USER_TIME, list.GetItemUserTime(item));
    if (const Record* record = list.GetItemDynamicData(item)) {
        SetDurationIfAny(page, IDC_PERF_TOTAL_TIME, record->GetCPUTime());
        UpdateIo(page, *record);
    }
}

INT_PTR OnInitDialog(HWND page, LPARAM initParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, initParam);
    if (!context || !context->processList) return EndPageWithMessage(page, IDS_UNEXPECTED_ERROR, MB_ICONERROR);
    SetUpPollingPage(page,
                     {IDC_PERF_CPU_SECTION, IDC_PERF_CPU_USAGE, IDC_PERF_PRIORITY, IDC_PERF_TOTAL_TIME, IDC_PERF_IO_SECTION,
                      IDC_PERF_WRITE_OPERATIONS, IDC_PERF_READ_OPERATIONS, IDC_PERF_OTHER_OPERATIONS, IDC_PERF_PAGEFAULTS},
                     IDC_PERF_IO_ICON);
    StartPolling(page);
    return TRUE;
}

// Dark-green fill, green line.
constexpr PollingPage kPerformancePage{IDC_PERF_GRAPH, 0, RGB(0, 128, 0), RGB(0, 255, 0), UpdateFields};

}  // namespace

INT_PTR CALLBACK PerformancePageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) return OnInitDialog(page, lParam);
    return HandlePollingPageMessage(page, message, wParam, lParam, kPerformancePage);
}

}  // namespace lmvx
