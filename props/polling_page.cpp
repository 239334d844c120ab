#include "props/polling_page.h"

#include <commctrl.h>

#include <utility>
#include <vector>

#include "app/shared_icons.h"
#include "props/page_common.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr UINT kPollMs = 100;

// Under Wine every lookup of a control by id asks the window server for the page's children, so each
// field is looked up once; and the graph is drawn again only when its picture would differ.
struct PollingState {
    std::vector<std::pair<int, HWND>> fields;
    unsigned long long drawnGraph = 0;   // fingerprint of the picture on screen; 0: none yet
};

HWND Field(HWND page, int controlId) {
    PollingState* state = PageStateOf<PollingState>(page);
    if (!state) return GetDlgItem(page, controlId);
    for (const auto& [id, window] : state->fields) {
        if (id == controlId) return window;
    }
    HWND window = GetDlgItem(page, controlId);
    state->fields.emplace_back(controlId, window);
    return window;
}

// FNV-1a over what the picture is made of: the control's size, the series' scale and its points.
class Fingerprint {
public:
    void Add(unsigned long long value) {
        for (int byte = 0; byte < 8; ++byte, value >>= 8) hash_ = (hash_ ^ (value & 0xFF)) * 0x100000001B3ull;
    }
    unsigned long long Value() const { return hash_ ? hash_ : 1; }

private:
    unsigned long long hash_ = 0xCBF29CE484222325ull;
};

unsigned long long PictureOf(HWND control, const wren::PERFGRAPH* graph, unsigned series) {
    Fingerprint picture;
    RECT client{};
    GetClientRect(control, &client);
    picture.Add(static_cast<unsigned>(client.right));
    picture.Add(static_cast<unsigned>(client.bottom));
    if (!graph) return picture.Value();   // the empty grid
    picture.Add(1);
    picture.Add(graph->GetScaleTop(series));
    const unsigned count = graph->GetPointCount(series);
    picture.Add(count);
    for (unsigned age = 0; age < count; ++age) picture.Add(graph->GetPoint(series, age));
    return picture.Value();
}

void DrawEmptyGrid(HWND control, HDC dc) {
    wren::PERFGRAPH empty;
    if (!empty.Init(10, 10, 0)) return;
    if (empty.RenderOpen(control, dc, 500)) {
        empty.RenderGrid();
        empty.RenderClose();
    }
    empty.Delete();
}

// dc null: the control's own DC, and only when the picture changed (a paint always draws).
void DrawGraph(HWND page, HDC dc, const PollingPage& kind) {
    const ProcessPropertiesContext* context = PageContext(page);
    if (!context || !context->processList) return;
    HWND control = Field(page, kind.graphId);
    const int item = context->processList->GetItemByPID(context->pid);
    const kestrel::_TASKDATADYNAMIC* record = item < 0 ? nullptr : context->processList->GetItemDynamicData(item);
    wren::PERFGRAPH* graph = record ? kestrel::GetHistoryGraph(record) : nullptr;
    if (PollingState* state = PageStateOf<PollingState>(page)) {
        const unsigned long long picture = PictureOf(control, graph, kind.series);
        if (!dc && picture == state->drawnGraph) return;
        state->drawnGraph = picture;
    }
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

void SetFieldIfChanged(HWND page, int controlId, const std::wstring& text) {
    wren::SetWindowTextIfChanged(Field(page, controlId), text.c_str());
}

void SetBarIfChanged(HWND page, int controlId, unsigned position) {
    HWND bar = Field(page, controlId);
    if (static_cast<unsigned>(SendMessageW(bar, PBM_GETPOS, 0, 0)) != position) SendMessageW(bar, PBM_SETPOS, position, 0);
}

void SetUpPollingPage(HWND page, std::initializer_list<int> boldIds, int secondIconId) {
    KeepPageState(page, std::make_unique<PollingState>());
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
    case WM_NCDESTROY: FreePageState<PollingState>(page); return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx
