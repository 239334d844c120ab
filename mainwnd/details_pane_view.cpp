// What the details pane shows of its process: icon, names, path, priority, note and the small graph.
#include <iterator>
#include <string>

#include "mainwnd/details_pane_context.h"
#include "mainwnd/details_pane_ids.h"
#include "mainwnd/details_pane_notes.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

// Colour words as the graph takes them (0x00BBGGRR): memory olive under yellow, CPU dark green under green.
constexpr COLORREF kMemoryFill = 0x008080;
constexpr COLORREF kCpuFill = 0x008000;
constexpr COLORREF kMemoryLine = 0x00FFFF;
constexpr COLORREF kCpuLine = 0x00FF00;
constexpr unsigned kPointIntervalMs = 500;

void ShowTexts(DetailsPaneContext& context, const wchar_t* name, const wchar_t* company, const wchar_t* path,
               const wchar_t* priority) {
    constexpr int kControls[] = {IDC_PANE_NAME, IDC_PANE_SECOND_LINE, IDC_PANE_PATH, IDC_PANE_PRIORITY_LINK};
    const wchar_t* const texts[] = {name, company, path, priority};
    for (size_t i = 0; i < std::size(kControls); ++i) {
        const wchar_t* text = texts[i] ? texts[i] : L"";
        if (context.shownTexts[i] == text) continue;   // unchanged: no message, no repaint
        SetDlgItemTextW(context.pane, kControls[i], text);
        context.shownTexts[i] = text;
    }
}

void ShowProcessIcon(DetailsPaneContext& context, HICON providerIcon) {
    // The provider's icon lives only until its next update, so the pane shows a copy of its own.
    UniqueIcon copy(providerIcon ? CopyIcon(providerIcon) : nullptr);
    SendDlgItemMessageW(context.pane, IDC_PANE_PROCESS_ICON, STM_SETICON, reinterpret_cast<WPARAM>(copy.Get()), 0);
    context.processIcon = std::move(copy);
}

void ShowNoteOf(DetailsPaneContext& context, const wchar_t* imageName) {
    context.noteName = NoteValueName(imageName ? imageName : L"");
    HWND notes = GetDlgItem(context.pane, IDC_PANE_NOTES);
    LoadNoteIntoEdit(notes, context.noteName);
    EnableWindow(notes, !context.noteName.empty());
}

}  // namespace

void RefreshPaneViews(DetailsPaneContext& context, bool processChanged) {
    const kestrel::TL_PROCESSLIST& provider = *context.provider;
    const int item = provider.GetItemByPID(context.shownPid);
    if (processChanged) InvalidateRect(GetDlgItem(context.pane, IDC_PANE_GRAPH), nullptr, FALSE);
    if (item < 0) {
        // A process that has ended keeps its last view until another one is selected.
        if (processChanged) {
            ShowTexts(context, L"", L"", L"", L"");
            ShowProcessIcon(context, nullptr);
            ShowNoteOf(context, L"");
        }
        return;
    }
    const unsigned priority = provider.GetItemProcessPriority(item);
    const wchar_t* priorityText = context.actions.priorityName ? context.actions.priorityName(priority) : L"";
    ShowTexts(context, provider.GetItemImageName(item), provider.GetItemInfoCompanyName(item),
              provider.GetItemPathName(item), priorityText);
    if (processChanged) {
        ShowProcessIcon(context, provider.GetItemIcon(item));
        ShowNoteOf(context, provider.GetItemImageName(item));
    }
}

void DrawPaneGraph(const DetailsPaneContext& context, const DRAWITEMSTRUCT& item) {
    // The refresh thread draws the graph each cycle; a repaint in between shows its last picture.
    const unsigned pid = context.shownPid;
    wren::PERFGRAPH* graph = context.actions.historyGraph && pid ? context.actions.historyGraph(pid) : nullptr;
    RECT area = item.rcItem;
    if (!graph || !graph->UpdateGraph(item.hwndItem, item.hDC, 0)) {
        FillRect(item.hDC, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
}

void DrawProcessGraphInPane(HWND pane, unsigned pid) {
    const DetailsPaneContext* context = PaneContextOf(pane);
    if (!context || !context->actions.historyGraph || context->provider->GetItemByPID(pid) < 0) return;
    wren::PERFGRAPH* graph = context->actions.historyGraph(pid);
    if (!graph || !graph->RenderOpen(GetDlgItem(pane, IDC_PANE_GRAPH), nullptr, kPointIntervalMs)) return;
    graph->RenderFill(kMemoryFill, 1);
    graph->RenderFill(kCpuFill, 0);
    graph->RenderGrid();
    graph->RenderLine(kMemoryLine, 1);
    graph->RenderLine(kCpuLine, 0);
    graph->RenderClose();
}

void DrawPlainPaneButton(const DRAWITEMSTRUCT& item) {
    RECT area = item.rcItem;
    const bool pushed = (item.itemState & ODS_SELECTED) != 0;
    DrawFrameControl(item.hDC, &area, DFC_BUTTON, DFCS_BUTTONPUSH | (pushed ? DFCS_PUSHED : 0));
    HICON icon = reinterpret_cast<HICON>(SendMessageW(item.hwndItem, WM_GETICON, ICON_SMALL, 0));
    const int iconTop = (area.top + area.bottom - 16) / 2;
    if (icon) DrawIconEx(item.hDC, area.left + 6, iconTop, icon, 16, 16, 0, nullptr, DI_NORMAL);
    wchar_t text[128] = {};
    GetWindowTextW(item.hwndItem, text, 128);
    RECT textArea{area.left + 6 + 16 + 6, area.top, area.right - 6, area.bottom};
    SetBkMode(item.hDC, TRANSPARENT);
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    SetTextColor(item.hDC, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    DrawTextW(item.hDC, text, -1, &textArea, DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_END_ELLIPSIS);
    if (item.itemState & ODS_FOCUS) {
        InflateRect(&area, -3, -3);
        DrawFocusRect(item.hDC, &area);
    }
}

}  // namespace lmvx
