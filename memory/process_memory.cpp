#include "memory/process_memory.h"

#include <tlhelp32.h>

#include "finch.h"
#include "memory/memory_ui.h"
#include "resource.h"

namespace lmvx {
namespace {

constexpr uint64_t kViewerSizeLimit = 0xFFFFFE;  // the first region this large ends the viewer's list: intended
constexpr uint64_t kPageSizeLimit = 0xFFFFFFFFFFFFFEull;

void AddEntry(HWND combo, const wchar_t* format, ...) {
    wchar_t text[600];
    va_list args;
    va_start(args, format);
    APIP_FormatStringV(text, sizeof text, format, args);
    va_end(args);
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

template <typename AddModule>
void ForEachModule(unsigned pid, DWORD flags, AddModule add) {
    UniqueFileHandle snapshot(CreateToolhelp32Snapshot(flags, pid));
    if (!snapshot) return;
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL more = Module32FirstW(snapshot.Get(), &module); more; more = Module32NextW(snapshot.Get(), &module)) {
        add(module);
    }
}

}  // namespace

UniqueHandle OpenProcessMemory(unsigned pid) {
    return UniqueHandle(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, pid));
}

bool QueryRegion(HANDLE process, uint64_t address, MEMORY_BASIC_INFORMATION& region) {
    return VirtualQueryEx(process, reinterpret_cast<const void*>(address), &region, sizeof region) == sizeof region;
}

void FillAddressList32(HWND combo, unsigned pid) {
    const wchar_t* imageFormat = UIL_LangModule.GetLangString(IDS_ADDRESS_IMAGE);
    ForEachModule(pid, TH32CS_SNAPMODULE, [&](const MODULEENTRY32W& module) {
        AddEntry(combo, imageFormat, static_cast<unsigned>(reinterpret_cast<uintptr_t>(module.modBaseAddr)),
                 FileNameOfPath(module.szExePath));
    });
    UniqueHandle process = OpenProcessMemory(pid);
    if (!process) return;
    const wchar_t* privateFormat = UIL_LangModule.GetLangString(IDS_ADDRESS_PRIVATE);
    WalkRegions(process.Get(), 0xFFFFFFFFu, kViewerSizeLimit, [&](const MEMORY_BASIC_INFORMATION& region) {
        if (IsCommittedPrivate(region)) {
            AddEntry(combo, privateFormat, static_cast<unsigned>(reinterpret_cast<uintptr_t>(region.BaseAddress)),
                     static_cast<int>(region.RegionSize));
        }
    });
}

void FillAddressList64(HWND combo, unsigned pid) {
    ForEachModule(pid, TH32CS_SNAPMODULE | TH32CS_SNAPMODULE32, [&](const MODULEENTRY32W& module) {
        AddEntry(combo, L"0x%16.16I64X (%s)", reinterpret_cast<uint64_t>(module.modBaseAddr),
                 FileNameOfPath(module.szExePath));
    });
    UniqueHandle process = OpenProcessMemory(pid);
    if (!process) return;
    WalkRegions(process.Get(), ~0ull, kPageSizeLimit, [&](const MEMORY_BASIC_INFORMATION& region) {
        if (IsCommittedPrivate(region)) {
            AddEntry(combo, L"0x%16.16I64X (%d Bytes)", reinterpret_cast<uint64_t>(region.BaseAddress),
                     static_cast<int>(region.RegionSize));
        }
    });
}

const wchar_t* SystemErrorText(DWORD code) { return APIP_GetErrorCodeStr(code); }

}  // namespace lmvx
