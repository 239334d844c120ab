#include "memory/virtual_memory_page.h"

#include <memory>
#include <new>
#include <string>

#include "finch.h"
#include "memory/hex_dump.h"
#include "memory/memory_ui.h"
#include "memory/process_memory.h"
#include "memory/region_text.h"
#include "props/properties_context.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr uint64_t kPageLength = 4096;
constexpr UINT_PTR kRefreshTimer = 4000;

// The page's fonts; the current address is whatever the address field holds.
struct PageFonts {
    UniqueFont address;
    UniqueFont source;
    UniqueFont dump;
};

uint64_t CurrentAddress(HWND page) { return ParseHexAddress(ControlText(page, IDC_MEM_ADDRESS, 128)); }

void ShowFailure(HWND page, const wchar_t* english, const wchar_t* german, DWORD error) {
    const std::wstring text = FormatText(wren::HardcodeLangString(english, german), SystemErrorText(error));
    SetDlgItemTextW(page, IDC_MEM_DUMP, text.c_str());
}

void ShowReadFailure(HWND page, DWORD error) {
    ShowFailure(page, L"Unable to read memory from the specified address.\r\n\r\n%s",
                L"Von der angegebenen Adresse konnte keine Daten gelesen werden.\r\n%s", error);
}

void ShowDump(HWND page, HANDLE process, uint64_t address, const MEMORY_BASIC_INFORMATION& region) {
    const uint64_t regionEnd = reinterpret_cast<uintptr_t>(region.BaseAddress) + region.RegionSize;
    const size_t length = regionEnd > address ? static_cast<size_t>(std::min(regionEnd - address, kPageLength)) : 0;
    uint8_t bytes[kPageLength] = {};
    SIZE_T read = 0;
    if (!ReadProcessMemory(process, reinterpret_cast<const void*>(address), bytes, length, &read)) {
        ShowReadFailure(page, GetLastError());
        return;
    }
    const size_t textSize = HexDumpBufferSize(read);
    std::unique_ptr<char[]> text(new (std::nothrow) char[textSize]);
    if (!text) return;
    FormatHexDumpColon(bytes, read, text.get(), textSize, static_cast<uint32_t>(address));
    SetAnsiTextIfChanged(page, IDC_MEM_DUMP, text.get());
}

void ShowAddress(HWND page) {
    const uint64_t address = CurrentAddress(page);
    UniqueHandle process = OpenProcessMemory(PageContext(page)->pid);
    if (!process) {
        ShowFailure(page, L"Unable to read memory from the process's virtual memory. %s",
                    L"Aus dem virtuellen Speicher des Prozesses konnten keine Daten gelesen werden. %s", GetLastError());
        return;
    }
    MEMORY_BASIC_INFORMATION region{};
    const bool queried = QueryRegion(process.Get(), address, region);
    const DWORD queryError = queried ? ERROR_SUCCESS : GetLastError();
    wren::_PROCADRINFO resolver;
    resolver.ResolveAddress(process.Get(), address);
    wchar_t name[512];
    wchar_t source[512];
    const std::wstring description = DescribeAddress(address, resolver.IsModuleValid() != 0,
                                                     resolver.GetDisplayName(name, 512), region.State, region.Type);
    wren::SetDlgItemTextW(page, IDC_MEM_ADDRESS, description.c_str());
    wren::SetDlgItemTextW(page, IDC_MEM_SOURCE, resolver.GetSourceDisplayStr(source, 512));
    if (queried) {
        ShowDump(page, process.Get(), address, region);
    } else {
        // No region to read (the process has ended, or the address is beyond its address space).
        ShowReadFailure(page, queryError);
    }
}

void StepPage(HWND page, bool forward) {
    const uint64_t current = CurrentAddress(page);
    uint64_t address = forward ? current + kPageLength : current - kPageLength;
    if (UniqueHandle process = OpenProcessMemory(PageContext(page)->pid)) {
        MEMORY_BASIC_INFORMATION region{};
        QueryRegion(process.Get(), address, region);
        const auto base = reinterpret_cast<uintptr_t>(region.BaseAddress);
        address = forward ? NextPageAddress(address, region.State, base, region.RegionSize)
                          : PreviousPageAddress(address, region.State, base);
    }
    SetDlgItemTextW(page, IDC_MEM_ADDRESS, FormatText(L"%I64X", address).c_str());
    ShowAddress(page);
}

void ArmRefreshTimer(HWND page) {
    const unsigned interval = PageContext(page)->refreshInterval;
    SetTimer(page, kRefreshTimer, interval == 0 ? 100 : interval, nullptr);
}

// The refresh re-shows the address, but never while the user is typing one.
void OnRefresh(HWND page) {
    const HWND focus = GetFocus();
    const HWND combo = GetDlgItem(page, IDC_MEM_ADDRESS);
    if (focus == combo || (focus && GetParent(focus) == combo)) return;
    ShowAddress(page);
}

BOOL OnInitDialog(HWND page, LPARAM initParam) {
    ProcessPropertiesContext* context = KeepPageContext(page, initParam);
    context->virtualMemoryPage = page;
    wren::Embold(page, IDC_VM_TITLE);
    if (!wren::IsThemeActive()) wren::EmStaticEdge(page, IDC_MEM_SOURCE);
    auto fonts = std::make_unique<PageFonts>();
    fonts->dump = LoadMonospacedFont();
    fonts->address = LoadMonospacedFont();
    fonts->source = LoadMonospacedFont();
    SendDlgItemMessageW(page, IDC_MEM_DUMP, WM_SETFONT, reinterpret_cast<WPARAM>(fonts->dump.Get()), FALSE);
    SendDlgItemMessageW(page, IDC_MEM_ADDRESS, WM_SETFONT, reinterpret_cast<WPARAM>(fonts->address.Get()), FALSE);
    SendDlgItemMessageW(page, IDC_MEM_SOURCE, WM_SETFONT, reinterpret_cast<WPARAM>(fonts->source.Get()), FALSE);
    SetWindowLongPtrW(page, DWLP_USER, reinterpret_cast<LONG_PTR>(fonts.release()));
    DecorateButton(page, IDOK, IDI_MEMORY);
    SetDlgItemTextW(page, IDC_MEM_ADDRESS, L"0x00400000");
    ArmRefreshTimer(page);   // the address list is filled when the page is first shown
    return TRUE;
}

void OnTimer(HWND page, UINT_PTR timer) {
    if (timer != kRefreshTimer) return;
    ArmRefreshTimer(page);
    if (IsWindowVisible(page)) PostMessageW(page, WM_LMVX_PAGE_REFRESH, 0, 0);
}

void OnCommand(HWND page, int id) {
    switch (id) {
    case IDOK: ShowAddress(page); break;
    case IDC_VM_NEXT_PAGE: StepPage(page, true); break;
    case IDC_VM_PREVIOUS_PAGE: StepPage(page, false); break;
    default: break;
    }
}

void OnDestroy(HWND page) {
    KillTimer(page, kRefreshTimer);
    std::unique_ptr<PageFonts> fonts(reinterpret_cast<PageFonts*>(GetWindowLongPtrW(page, DWLP_USER)));
    SetWindowLongPtrW(page, DWLP_USER, 0);
}

}  // namespace

INT_PTR CALLBACK VirtualMemoryPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(page, lParam);
    case WM_SHOWWINDOW:
        if (IsFirstShowing(page, wParam) && PageContext(page))
            FillAddressList64(GetDlgItem(page, IDC_MEM_ADDRESS), PageContext(page)->pid);
        if (wParam) ShowAddress(page);
        return FALSE;
    case WM_COMMAND: OnCommand(page, LOWORD(wParam)); return TRUE;
    case WM_TIMER: OnTimer(page, wParam); return TRUE;
    case WM_LMVX_PAGE_REFRESH: OnRefresh(page); return TRUE;
    case WM_DESTROY: OnDestroy(page); return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx
