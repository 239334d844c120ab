// The Memory page: working set, page-file usage and private bytes with peaks and rates of change, the
// handle, GDI and USER object counts, and the process's memory history. Polls the program's process list
// every 100 ms and writes a field only when its text changes.
#include "kestrel.h"
#include "props/page_common.h"
#include "props/polling_page.h"
#include "props/process_info_pages.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

// Sizes are unsigned: shifting keeps counters above 2 GB right.
std::wstring KilobytesText(unsigned bytes) { return FormatText(L"%u KB", bytes >> 10); }
// Rates are signed: a shrinking working set shows a minus sign.
std::wstring RateText(int bytesPerSecond) { return FormatText(L"%i KB/s", bytesPerSecond / 1024); }

void UpdateFields(HWND page, const kestrel::TL_PROCESSLIST& list, int item) {
    SetFieldIfChanged(page, IDC_MEMORY_HANDLES, FormatText(L"%d", list.GetItemHandleCount(item)));
    SetFieldIfChanged(page, IDC_MEMORY_GDI_OBJECTS, FormatText(L"%d", list.GetItemGDIObjectCount(item)));
    SetFieldIfChanged(page, IDC_MEMORY_USER_OBJECTS, FormatText(L"%d", list.GetItemUserObjectCount(item)));
    const kestrel::_TASKDATADYNAMIC* record = list.GetItemDynamicData(item);
    if (!record) return;
    SetFieldIfChanged(page, IDC_MEMORY_PRIVATE, KilobytesText(record->GetPrivateBytes()));
    // A counter whose peak is still 0 has never been measured: its fields keep "n/a".
    if (record->GetPagefilePeak() != 0) {
        SetFieldIfChanged(page, IDC_MEMORY_PAGED, KilobytesText(record->GetPagefileBytes()));
        SetFieldIfChanged(page, IDC_MEMORY_PAGED_PEAK, KilobytesText(record->GetPagefilePeak()));
        SetFieldIfChanged(page, IDC_MEMORY_PAGED_DELTA, RateText(record->GetPagefileDelta()));
    }
    if (record->GetPhysicalMemoryPeak() != 0) {
        SetFieldIfChanged(page, IDC_MEMORY_PHYSICAL, KilobytesText(record->GetPhysicalMemoryBytes()));
        SetFieldIfChanged(page, IDC_MEMORY_PHYSICAL_DELTA, RateText(record->GetPhysicalMemoryDelta()));
        SetFieldIfChanged(page, IDC_MEMORY_PHYSICAL_PEAK, KilobytesText(record->GetPhysicalMemoryPeak()));
    }
}

INT_PTR OnInitDialog(HWND page, LPARAM initParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, initParam);
    if (!context || !context->processList) return EndPageWithMessage(page, IDS_UNEXPECTED_ERROR, MB_ICONERROR);
    SetUpPollingPage(page,
                     {IDC_MEMORY_USAGE_SECTION, IDC_MEMORY_RESOURCES_SECTION, IDC_MEMORY_PHYSICAL, IDC_MEMORY_PAGED,
                      IDC_MEMORY_PRIVATE, IDC_MEMORY_HANDLES, IDC_MEMORY_GDI_OBJECTS, IDC_MEMORY_USER_OBJECTS},
                     IDC_MEMORY_RESOURCES_ICON);
    if (context->processList->GetItemByPID(context->pid) < 0)
        return EndPageWithMessage(page, IDS_PROCESS_GONE, MB_ICONWARNING);
    StartPolling(page);
    return TRUE;
}

// Olive fill, yellow line.
constexpr PollingPage kMemoryPage{IDC_MEMORY_GRAPH, 1, RGB(128, 128, 0), RGB(255, 255, 0), UpdateFields};

}  // namespace

INT_PTR CALLBACK MemoryPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) return OnInitDialog(page, lParam);
    return HandlePollingPageMessage(page, message, wParam, lParam, kMemoryPage);
}

}  // namespace lmvx
