#include "props/polling_page.h"

#include "app/shared_icons.h"
#include "props/page_common.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr UINT kPollMs = 100;

void DrawEmptyGrid(HWND control, HDC dc) {
    wren::PERFGRAPH empty;
    if (!empty.Init(10, 10, 0)) return;
    if (empty.RenderOpen(control, dc, 500)) {
        empty.RenderGrid();
        empty.RenderClose();
    }
    empty.Delete();
}

// dc null: the control's own DC.
void DrawGraph(HWND page, HDC dc, const PollingPage& kind) {
    const ProcessPropertiesContext* context = PageContext(page);
    if (!context || !context->processList) return;
    HWND control = GetDlgItem(page, kind.graphId);
    const int item = context->processList->GetItemByPID(context->pid);
    const kestrel::_TASKDATADYNAMIC* record = item < 0 ? nullptr : context->processList->GetItemDynamicData(item);
    wren::PERFGRAPH* graph = record ? kestrel::GetHistoryGraph(record) : nullptr;
    if (!graph) {
        DrawEmptyGrid(control, dc);
        return;
    }
    if (!graph->RenderOpen(control, dc, 500)) return;
    graph->RenderFill(kind.fill, kind.series);
    graph->RenderGrid();
    graph->RenderLine(kind.line, kind.series);
    graph->RenderClose();
}

void OnPoll(HWND page, const PollingPage& kind) {
    KillTimer(page, IDT_PAGE_POLL);
    const ProcessPropertiesContext* context = PageContext(page);
    if (!context || !context->processList) {
        EndPageWithMessage(page, IDS_UNEXPECTED_ERROR, MB_ICONERROR);
        return;
    }
    const int item = context->processList->GetItemByPID(context->pid);
    if (item >= 0) kind.update(page, *context->processList, item);
    if (IsWindowVisible(page)) DrawGraph(page, nullptr, kind);
    SetTimer(page, IDT_PAGE_POLL, kPollMs, nullptr);
}

}  // namespace

void SetUpPollingPage(HWND page, std::initializer_list<int> boldIds, int secondIconId) {
    SetBoldTitle(page);
    for (int id : boldIds) wren::Embold(page, id);
    SendDlgItemMessageW(page, IDC_PAGES_SECTION_ICON_1, STM_SETICON,
                        reinterpret_cast<WPARAM>(SharedIconById(IDI_PERFORMANCE).small), 0);
    SendDlgItemMessageW(page, secondIconId, STM_SETICON, reinterpret_cast<WPARAM>(SharedIconById(IDI_MEMORY).small), 0);
}

void StartPolling(HWND page) { SetTimer(page, IDT_PAGE_POLL, 0, nullptr); }

INT_PTR HandlePollingPageMessage(HWND page, UINT message, WPARAM wParam, LPARAM lParam, const PollingPage& kind) {
    switch (message) {
    case WM_TIMER:
        if (wParam != IDT_PAGE_POLL) return FALSE;
        OnPoll(page, kind);
        return TRUE;
    case WM_COMMAND: return EndPageOnCloseCommand(page, wParam);
    case WM_DRAWITEM: {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (item->CtlID != static_cast<UINT>(kind.graphId)) return DrawPageOwnerItem(item);
        DrawGraph(page, item->hDC, kind);
        return TRUE;
    }
    }
    return FALSE;
}

}  // namespace lmvx
