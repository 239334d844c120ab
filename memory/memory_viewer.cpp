#include "memory/memory_viewer.h"

#include <windowsx.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

#include "common/dialog_thread.h"
#include "finch.h"
#include "memory/hex_dump.h"
#include "memory/memory_search.h"
#include "memory/memory_ui.h"
#include "memory/memory_viewer_context.h"
#include "memory/process_memory.h"
#include "memory/region_text.h"
#include "memory/viewer_symbols.h"
#include "resource.h"

namespace lmvx {
namespace {

constexpr uint32_t kInitialAddress = 0x400000;
constexpr uint64_t kViewerDumpLimit = 0x10000;
constexpr COLORREF kLinkColour = RGB(0, 0, 204);

MemoryViewerContext* ViewerContext(HWND dialog) {
    return reinterpret_cast<MemoryViewerContext*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
}

void SetText(HWND dialog, int controlId, const std::wstring& text) { SetDlgItemTextW(dialog, controlId, text.c_str()); }

void ShowRegion(HWND dialog, const MEMORY_BASIC_INFORMATION& region) {
    const wchar_t* undefined = UIL_LangModule.GetLangString(IDS_UNDEFINED);
    SetText(dialog, IDC_MEM_BASE_ADDRESS, Hex32Text(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(region.BaseAddress))));
    SetText(dialog, IDC_MEM_ALLOCATION_BASE,
            Hex32Text(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(region.AllocationBase))));
    SetText(dialog, IDC_MEM_REGION_SIZE, Hex32Text(static_cast<uint32_t>(region.RegionSize)));
    SetText(dialog, IDC_MEM_STATE, RegionStateText(region.State));
    SetText(dialog, IDC_MEM_TYPE, RegionTypeText(region.State, region.Type, undefined));
    SetText(dialog, IDC_MEM_PROTECT, RegionProtectText(region.State, region.Protect, undefined));
}

// A symbol session loads the process's module list and takes far longer than the region and the dump.
void ShowSymbol(HWND dialog, uint32_t address) {
    MemoryViewerContext* context = ViewerContext(dialog);
    UniqueHandle process = OpenProcessMemory(context->processId);
    if (!process) return;
    const SymbolTexts symbol = LookUpSymbol(process.Get(), address, UIL_LangModule.GetLangString(IDS_UNKNOWN));
    SetText(dialog, IDC_MEM_SYMBOL, symbol.symbol);
    SetText(dialog, IDC_MEM_SOURCE, symbol.source);
}

// What follows an address on the viewer's timer: its symbol, then the rest of its dump. A timer fires only
// when the window has no input and nothing to paint, so the region and the first lines of the dump show at
// once. The edit control measures every line it takes, which for a whole 64 KiB dump (4096 lines) takes
// the better part of a second under Wine; in pieces the window stays responsive meanwhile.
constexpr UINT_PTR kFollowUpTimer = 1;
constexpr size_t kDumpLineLength = 61;
constexpr size_t kFirstDumpLines = 64;    // a few screens
constexpr size_t kDumpPieceLines = 256;   // per timer tick

// Puts text[from, to) into the dump field: the whole field when from is 0, else appended at its end,
// keeping the user's selection and scroll position.
void PutDumpText(HWND dialog, std::string& text, size_t from, size_t to) {
    HWND edit = GetDlgItem(dialog, IDC_MEM_DUMP);
    // The piece is cut out in place; text[to] is the string's own terminator at its end.
    const char kept = text[to];
    text[to] = '\0';
    if (from == 0) {
        SetWindowTextA(edit, text.data());
    } else {
        DWORD selectionStart = 0, selectionEnd = 0;
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&selectionStart), reinterpret_cast<LPARAM>(&selectionEnd));
        const LRESULT firstLine = SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0);
        SendMessageW(edit, WM_SETREDRAW, FALSE, 0);
        const int end = GetWindowTextLengthW(edit);
        SendMessageW(edit, EM_SETSEL, end, end);
        SendMessageA(edit, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.data() + from));
        SendMessageW(edit, EM_SETSEL, selectionStart, selectionEnd);
        SendMessageW(edit, EM_LINESCROLL, 0, firstLine - SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0));
        SendMessageW(edit, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(edit, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
    text[to] = kept;
}

void SetDump(HWND dialog, std::string text) {
    MemoryViewerContext* context = ViewerContext(dialog);
    context->dumpText = std::move(text);
    context->dumpShown = std::min(context->dumpText.size(), kFirstDumpLines * kDumpLineLength);
    PutDumpText(dialog, context->dumpText, 0, context->dumpShown);
}

void OnFollowUpTimer(HWND dialog) {
    MemoryViewerContext* context = ViewerContext(dialog);
    if (context->symbolPending) {
        context->symbolPending = false;
        ShowSymbol(dialog, context->shownAddress);
    } else if (context->dumpShown < context->dumpText.size()) {
        const size_t to = std::min(context->dumpText.size(), context->dumpShown + kDumpPieceLines * kDumpLineLength);
        PutDumpText(dialog, context->dumpText, context->dumpShown, to);
        context->dumpShown = to;
    } else {
        KillTimer(dialog, kFollowUpTimer);
    }
}

// Dumps from the address to the end of its region, at most 64 KiB; an unreadable range empties the dump.
void ShowDump(HWND dialog, HANDLE process, uint32_t address, const MEMORY_BASIC_INFORMATION& region) {
    const uint64_t regionEnd = reinterpret_cast<uintptr_t>(region.BaseAddress) + region.RegionSize;
    const uint64_t length = regionEnd > address ? std::min<uint64_t>(regionEnd - address, kViewerDumpLimit) : 0;
    std::unique_ptr<uint8_t[]> bytes(new (std::nothrow) uint8_t[length + 1]());
    if (!bytes) return;
    SIZE_T read = 0;
    if (length == 0 || !ReadProcessMemory(process, reinterpret_cast<const void*>(static_cast<uintptr_t>(address)),
                                          bytes.get(), length, &read)) {
        read = 0;
    }
    std::string text;
    try {
        text.resize(HexDumpBufferSize(read));
    } catch (const std::bad_alloc&) {
        return;
    }
    text.resize(FormatHexDump(bytes.get(), read, text.data(), text.size(), address));
    SetDump(dialog, std::move(text));
}

void ShowAddress(HWND dialog, uint32_t address) {
    MemoryViewerContext* context = ViewerContext(dialog);
    UniqueHandle process = OpenProcessMemory(context->processId);
    if (!process) return;
    MEMORY_BASIC_INFORMATION region{};
    const bool queried = QueryRegion(process.Get(), address, region);
    context->shownAddress = address;
    context->symbolPending = true;
    SetTimer(dialog, kFollowUpTimer, USER_TIMER_MINIMUM, nullptr);
    SetText(dialog, IDC_MEM_ADDRESS, Hex32Text(address));
    if (!queried) {
        SetDump(dialog, {});
        return;
    }
    ShowRegion(dialog, region);
    ShowDump(dialog, process.Get(), address, region);
}

void OnRead(HWND dialog) {
    ShowAddress(dialog, static_cast<uint32_t>(ParseHexAddress(ControlText(dialog, IDC_MEM_ADDRESS, 128))));
}

// A click on a link value: its text becomes the address, which is then read.
void OnLinkClicked(HWND dialog, int controlId) {
    SetText(dialog, IDC_MEM_ADDRESS, ControlText(dialog, controlId, 128));
    OnRead(dialog);
}

void OnSearch(HWND dialog) {
    MemoryViewerContext* context = ViewerContext(dialog);
    if (context->search) {
        SetForegroundWindow(context->search);
        return;
    }
    ShowMemorySearch(*context);
}

void CloseSearch(MemoryViewerContext* context) {
    if (context && context->search) SendMessageW(context->search, WM_COMMAND, IDCANCEL, 0);
}

BOOL OnInitDialog(HWND dialog, MemoryViewerContext* context) {
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    context->dialog = dialog;
    context->dumpFont = LoadMonospacedFont();
    context->addressFont = LoadMonospacedFont();
    SendDlgItemMessageW(dialog, IDC_MEM_DUMP, WM_SETFONT, reinterpret_cast<WPARAM>(context->dumpFont.Get()), FALSE);
    SendDlgItemMessageW(dialog, IDC_MEM_ADDRESS, WM_SETFONT, reinterpret_cast<WPARAM>(context->addressFont.Get()), FALSE);
    SendDlgItemMessageW(dialog, IDC_MEM_DUMP, EM_SETLIMITTEXT, 0, 0);
    FillAddressList32(GetDlgItem(dialog, IDC_MEM_ADDRESS), context->processId);
    ShowAddress(dialog, kInitialAddress);
    wchar_t caption[256];
    APIP_FormatString(caption, sizeof caption, UIL_LangModule.GetLangString(IDS_MEMORY_VIEWER_CAPTION),
                      context->processId);
    SetWindowTextW(dialog, caption);
    return TRUE;
}

void OnCommand(HWND dialog, int id, int code) {
    switch (id) {
    case IDOK: OnRead(dialog); break;
    case IDC_MEM_SEARCH: OnSearch(dialog); break;
    case IDC_MEM_BASE_ADDRESS:
    case IDC_MEM_ALLOCATION_BASE:
        if (code == STN_CLICKED) OnLinkClicked(dialog, id);
        break;
    case IDCANCEL:
        CloseSearch(ViewerContext(dialog));
        EndDialog(dialog, IDCANCEL);
        break;
    default: break;
    }
}

// The two link values are drawn in the link colour, with the hand cursor over them.
INT_PTR OnCtlColorStatic(HWND dialog, HDC dc, HWND control) {
    const int id = GetDlgCtrlID(control);
    if (id != IDC_MEM_BASE_ADDRESS && id != IDC_MEM_ALLOCATION_BASE) return FALSE;
    SetTextColor(dc, kLinkColour);
    SetBkMode(dc, TRANSPARENT);
    (void)dialog;
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

BOOL OnSetCursor(HWND dialog, HWND under) {
    const int id = GetDlgCtrlID(under);
    if (id != IDC_MEM_BASE_ADDRESS && id != IDC_MEM_ALLOCATION_BASE) return FALSE;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
    return TRUE;
}

void OnDestroy(HWND dialog) {
    MemoryViewerContext* context = ViewerContext(dialog);
    CloseSearch(context);
    if (context) {
        context->dumpFont.Reset();
        context->addressFont.Reset();
    }
}

DWORD WINAPI ViewerThread(void* parameter) {
    auto* context = static_cast<MemoryViewerContext*>(parameter);
    UIL_LangModule.ShowDialogParam(IDD_MEMORY_VIEWER, context->owner, MemoryViewerProc,
                                   reinterpret_cast<LPARAM>(context));
    return 0;
}

}  // namespace

INT_PTR CALLBACK MemoryViewerProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, reinterpret_cast<MemoryViewerContext*>(lParam));
    case WM_COMMAND: OnCommand(dialog, LOWORD(wParam), HIWORD(wParam)); return TRUE;
    case WM_CTLCOLORSTATIC: return OnCtlColorStatic(dialog, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_SETCURSOR: return OnSetCursor(dialog, reinterpret_cast<HWND>(wParam));
    case WM_TIMER:
        if (wParam == kFollowUpTimer) OnFollowUpTimer(dialog);
        return TRUE;
    case WM_DESTROY: OnDestroy(dialog); return FALSE;
    }
    return FALSE;
}

void ShowMemoryViewer(unsigned processId, HWND owner) {
    auto context = std::make_unique<MemoryViewerContext>();
    context->owner = owner;
    context->processId = processId;
    RunDialogThread(ViewerThread, context.get());
}

}  // namespace lmvx
