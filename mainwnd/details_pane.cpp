#include "mainwnd/details_pane.h"

#include <algorithm>
#include <memory>

#include "app/shared_icons.h"
#include "finch.h"
#include "mainwnd/details_pane_commands.h"
#include "mainwnd/details_pane_context.h"
#include "mainwnd/details_pane_ids.h"
#include "mainwnd/details_pane_notes.h"
#include "mainwnd/details_pane_restart.h"
#include "mainwnd/process_menu.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {

DetailsPaneContext* PaneContextOf(HWND pane) {
    return reinterpret_cast<DetailsPaneContext*>(GetWindowLongPtrW(pane, GWLP_USERDATA));
}

unsigned SelectedPidOfList(HWND processList) {
    const unsigned pid = SelectedProcessId(processList);
    return pid == kNoProcess ? 0 : pid;
}

unsigned DetailsPaneShownPid(HWND pane) { return GetDlgItemInt(pane, IDC_PANE_SHOWN_PID, nullptr, FALSE); }

namespace {

void SetButtonIcon(HWND pane, int id, unsigned short iconId) {
    SendDlgItemMessageW(pane, id, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(SharedIconById(iconId).small));
}

void SetStaticIcon(HWND pane, int id, unsigned short iconId) {
    SendDlgItemMessageW(pane, id, STM_SETICON, reinterpret_cast<WPARAM>(SharedIconById(iconId).small), 0);
}

void MakeLinkFont(DetailsPaneContext& context) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(context.pane, WM_GETFONT, 0, 0)), sizeof(font), &font);
    font.lfUnderline = TRUE;
    context.linkFont.Reset(CreateFontIndirectW(&font));
    SendDlgItemMessageW(context.pane, IDC_PANE_PRIORITY_LINK, WM_SETFONT,
                        reinterpret_cast<WPARAM>(context.linkFont.Get()), FALSE);
}

INT_PTR OnInitDialog(HWND pane, DetailsPaneContext* context) {
    context->pane = pane;
    SetWindowLongPtrW(pane, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    ShowWindow(pane, SW_SHOW);
    SetButtonIcon(pane, IDC_PANE_PROPERTIES, IDI_PROPERTIES);
    SetButtonIcon(pane, IDC_PANE_WINDOWS, IDI_PROCESS_WINDOWS);
    SetButtonIcon(pane, IDC_PANE_ICON_BUTTON, IDI_DETAILS_INFO);
    SetButtonIcon(pane, IDC_PANE_PAUSE, IDI_SUSPEND_PROCESS);
    SetStaticIcon(pane, IDC_PANE_ICON_1, IDI_OPEN_FOLDER);
    SetStaticIcon(pane, IDC_PANE_ICON_2, IDI_PRIORITY);
    SetStaticIcon(pane, IDC_PANE_ICON_3, IDI_PERFORMANCE);
    SetStaticIcon(pane, IDC_PANE_ICON_4, IDI_DETAILS_INFO);
    wren::Embold(pane, IDC_PANE_NAME);
    wren::Embold(pane, IDC_PANE_PROPERTIES);
    MakeLinkFont(*context);
    SendDlgItemMessageW(pane, IDC_PANE_NOTES, EM_LIMITTEXT, 1023, 0);
    return TRUE;
}

// Name and second line reach 10 pixels short of the right edge; the note edit takes the height that is left.
void OnSize(HWND pane, int width, int height) {
    for (int id : {IDC_PANE_NAME, IDC_PANE_SECOND_LINE}) {
        HWND control = GetDlgItem(pane, id);
        RECT rect{};
        GetWindowRect(control, &rect);
        MapWindowPoints(nullptr, pane, reinterpret_cast<POINT*>(&rect), 2);
        SetWindowPos(control, nullptr, 0, 0, width - rect.left - 10, rect.bottom - rect.top, SWP_NOZORDER | SWP_NOMOVE);
        InvalidateRect(control, nullptr, TRUE);
    }
    HWND notes = GetDlgItem(pane, IDC_PANE_NOTES);
    RECT margin{7, 7, 0, 0};
    MapDialogRect(pane, &margin);
    RECT rect{};
    GetWindowRect(notes, &rect);
    MapWindowPoints(nullptr, pane, reinterpret_cast<POINT*>(&rect), 2);
    const int notesHeight = std::max<int>(height - margin.bottom - rect.top, rect.bottom - rect.top > 0 ? 24 : 0);
    SetWindowPos(notes, nullptr, 0, 0, rect.right - rect.left, notesHeight, SWP_NOZORDER | SWP_NOMOVE);
}

// Lower-left corner of a control, in screen coordinates: where its menus open.
POINT BelowControl(HWND pane, int id) {
    RECT rect{};
    GetWindowRect(GetDlgItem(pane, id), &rect);
    return POINT{rect.left, rect.bottom};
}

void TogglePause(DetailsPaneContext& context, unsigned shown, unsigned selected) {
    const PaneActions& actions = context.actions;
    // Tests the selected process but acts on the shown one: intended, the two differ only between cycles.
    const bool suspended = actions.isSuspended && actions.isSuspended(selected);
    auto act = suspended ? actions.resume : actions.pause;
    if (act) act(shown, context.mainWindow);
}

void RunPaneCommand(DetailsPaneContext& context, unsigned command) {
    const PaneRoute route = RoutePaneCommand(command);
    const unsigned shown = DetailsPaneShownPid(context.pane);
    const unsigned selected = SelectedPidOfList(context.processList);
    const unsigned pid = route.target == PaneTarget::Selected ? selected : shown;
    const PaneActions& actions = context.actions;
    HWND owner = context.mainWindow;
    switch (route.action) {
    case PaneAction::Ignore:
    case PaneAction::EndPage: break;
    case PaneAction::Terminate: if (actions.terminate) actions.terminate(pid, owner); break;
    case PaneAction::TogglePause: TogglePause(context, shown, selected); break;
    case PaneAction::SetPriority: if (actions.setPriority) actions.setPriority(pid, command, owner); break;
    case PaneAction::OpenFolder:
        if (actions.openInShell) actions.openInShell(context.provider->GetItemPathName(context.provider->GetItemByPID(pid)));
        break;
    case PaneAction::PageOut: if (actions.pageOut) actions.pageOut(pid, owner); break;
    case PaneAction::MemoryViewer: if (actions.openMemoryViewer) actions.openMemoryViewer(pid, owner); break;
    case PaneAction::NetworkEndpoints: if (actions.openNetworkEndpoints) actions.openNetworkEndpoints(pid, owner); break;
    case PaneAction::Restart: RestartProcess(*context.provider, pid, owner, actions.terminate); break;
    case PaneAction::Properties: if (actions.openProperties) actions.openProperties(pid, owner); break;
    case PaneAction::KernelObjects: if (actions.openKernelObjects) actions.openKernelObjects(pid, owner); break;
    case PaneAction::PriorityMenu:
        if (actions.showPriorityMenu) {
            const POINT at = BelowControl(context.pane, IDC_PANE_PRIORITY_LINK);
            actions.showPriorityMenu(pid, at.x, at.y, context.pane);
        }
        break;
    case PaneAction::WindowsMenu:
        if (actions.showWindowsMenu) {
            const POINT at = BelowControl(context.pane, IDC_PANE_WINDOWS);
            actions.showWindowsMenu(pid, at.x, at.y, context.pane);
        }
        break;
    }
}

INT_PTR OnCommand(HWND pane, WORD command, WORD notification) {
    DetailsPaneContext* context = PaneContextOf(pane);
    if (!context) return FALSE;
    if (command == IDC_PANE_NOTES) {
        if (notification == EN_KILLFOCUS) SaveNoteFromEdit(GetDlgItem(pane, IDC_PANE_NOTES), context->noteName);
        return TRUE;
    }
    const PaneRoute route = RoutePaneCommand(command);
    if (route.action == PaneAction::EndPage) {
        EndDialog(pane, command);
        return TRUE;
    }
    if (route.action == PaneAction::Ignore) return FALSE;
    RunPaneCommand(*context, command);
    return TRUE;
}

INT_PTR OnDrawItem(HWND pane, const DRAWITEMSTRUCT* item) {
    DetailsPaneContext* context = PaneContextOf(pane);
    if (context && item->CtlID == IDC_PANE_GRAPH) DrawPaneGraph(*context, *item);
    else if (context && context->actions.drawOwnerButton) context->actions.drawOwnerButton(item->hwndItem, item);
    else if (item->CtlType == ODT_BUTTON) DrawPlainPaneButton(*item);
    return TRUE;
}

// The priority link: link colour, and a hand over it.
INT_PTR OnCtlColorStatic(HDC dc, HWND control) {
    if (GetDlgCtrlID(control) != IDC_PANE_PRIORITY_LINK) return FALSE;
    SetTextColor(dc, GetSysColor(COLOR_HOTLIGHT));
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

INT_PTR OnSetCursor(HWND pane, HWND over) {
    if (GetDlgCtrlID(over) != IDC_PANE_PRIORITY_LINK) return FALSE;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    SetWindowLongPtrW(pane, DWLP_MSGRESULT, TRUE);
    return TRUE;
}

// A note was saved elsewhere (a properties window): show the stored text unless the user is editing here.
INT_PTR OnNoteSaved(HWND pane) {
    DetailsPaneContext* context = PaneContextOf(pane);
    HWND notes = GetDlgItem(pane, IDC_PANE_NOTES);
    if (context && !SendMessageW(notes, EM_GETMODIFY, 0, 0)) LoadNoteIntoEdit(notes, context->noteName);
    return TRUE;
}

void OnNcDestroy(HWND pane) {
    std::unique_ptr<DetailsPaneContext> context(PaneContextOf(pane));
    SetWindowLongPtrW(pane, GWLP_USERDATA, 0);
    if (context) SaveNoteFromEdit(GetDlgItem(pane, IDC_PANE_NOTES), context->noteName);
}

}  // namespace

INT_PTR CALLBACK DetailsPaneProc(HWND pane, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == NoteSavedMessage()) return OnNoteSaved(pane);
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(pane, reinterpret_cast<DetailsPaneContext*>(lParam));
    case WM_SIZE: OnSize(pane, LOWORD(lParam), HIWORD(lParam)); return TRUE;
    case WM_DRAWITEM: return OnDrawItem(pane, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_COMMAND: return OnCommand(pane, LOWORD(wParam), HIWORD(wParam));
    case WM_CTLCOLORSTATIC: return OnCtlColorStatic(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_SETCURSOR: return OnSetCursor(pane, reinterpret_cast<HWND>(wParam));
    case WM_NCDESTROY: OnNcDestroy(pane); return FALSE;
    }
    return FALSE;
}

HWND DetailsPaneCreate(HWND mainWindow, HWND processList, const kestrel::TL_PROCESSLIST& provider,
                       const PaneActions& actions) {
    auto context = std::make_unique<DetailsPaneContext>();
    context->mainWindow = mainWindow;
    context->processList = processList;
    context->provider = &provider;
    context->actions = actions;
    HWND pane = UIL_LangModule.LoadDialogParam(IDD_DETAILS_PANE, mainWindow, DetailsPaneProc,
                                               reinterpret_cast<LPARAM>(context.get()));
    if (!pane) return nullptr;
    context.release();   // owned by the pane from here on; freed on WM_NCDESTROY
    return pane;
}

int DetailsPanePreferredWidth(HWND pane) {
    RECT width{0, 0, 140, 0};   // the template's width in dialog units
    MapDialogRect(pane, &width);
    return width.right;
}

void DetailsPaneShowProcess(HWND pane, unsigned pid) {
    DetailsPaneContext* context = PaneContextOf(pane);
    if (!context) return;
    const bool changed = pid != context->shownPid;
    if (changed) {
        SaveNoteFromEdit(GetDlgItem(pane, IDC_PANE_NOTES), context->noteName);
        SetDlgItemInt(pane, IDC_PANE_SHOWN_PID, pid, FALSE);
        context->shownPid = pid;
    }
    RefreshPaneViews(*context, changed);
}

void DetailsPaneFollowSelection(HWND pane) {
    DetailsPaneContext* context = PaneContextOf(pane);
    if (!context) return;
    DetailsPaneFollowSelection(pane, SelectedPidOfList(context->processList));
}

void DetailsPaneFollowSelection(HWND pane, unsigned selectedPid) {
    DetailsPaneContext* context = PaneContextOf(pane);
    if (!context) return;
    if (selectedPid != 0) DetailsPaneShowProcess(pane, selectedPid);
    else RefreshPaneViews(*context, false);
}

}  // namespace lmvx
