// _PROCADRINFO: the module and source line at an address of another process, for the Virtual Memory page.
#include <windows.h>
#include <dbghelp.h>
#include <tlhelp32.h>

#include <cwchar>
#include <type_traits>

#include "unique_resource.h"
#include "wren.h"

namespace wren {
namespace {

const wchar_t* FileNamePart(const wchar_t* path) {
    const wchar_t* name = path;
    for (const wchar_t* c = path; *c; ++c) {
        if (*c == L'\\' || *c == L'/') name = c + 1;
    }
    return name;
}

// The system folder's dbghelp.dll, for source lines; loaded once and kept.
struct LineLookup {
    decltype(&SymSetOptions) setOptions = nullptr;
    decltype(&SymInitializeW) initialize = nullptr;
    decltype(&SymCleanup) cleanup = nullptr;
    decltype(&SymGetLineFromAddrW64) lineFromAddr = nullptr;
};

const LineLookup& Dbghelp() {
    static const LineLookup lookup = [] {
        LineLookup loaded;
        wchar_t path[MAX_PATH];
        const UINT length = GetSystemDirectoryW(path, MAX_PATH - 16);
        if (length == 0 || length >= MAX_PATH - 16) return loaded;
        wcscat(path, L"\\dbghelp.dll");
        HMODULE module = LoadLibraryExW(path, nullptr, 0);
        if (!module) return loaded;
        auto find = [module](auto& function, const char* name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
                reinterpret_cast<void*>(GetProcAddress(module, name)));
        };
        find(loaded.setOptions, "SymSetOptions");
        find(loaded.initialize, "SymInitializeW");
        find(loaded.cleanup, "SymCleanup");
        find(loaded.lineFromAddr, "SymGetLineFromAddrW64");
        return loaded;
    }();
    return lookup;
}

bool FindSourceLine(HANDLE process, unsigned long long address, wchar_t* out, size_t outLength) {
    const LineLookup& dbg = Dbghelp();
    if (!dbg.setOptions || !dbg.initialize || !dbg.cleanup || !dbg.lineFromAddr) return false;
    dbg.setOptions(SYMOPT_UNDNAME | SYMOPT_DEFERRED_LOADS | SYMOPT_LOAD_LINES);
    if (!dbg.initialize(process, nullptr, TRUE)) return false;
    IMAGEHLP_LINEW64 line{};
    line.SizeOfStruct = sizeof line;
    DWORD displacement = 0;
    const bool found = dbg.lineFromAddr(process, address, &displacement, &line) && line.FileName;
    if (found) swprintf(out, outLength, L"%ls(%lu)", line.FileName, static_cast<unsigned long>(line.LineNumber));
    dbg.cleanup(process);
    return found;
}

const wchar_t* CopyOut(const wchar_t* text, wchar_t* buffer, unsigned length) {
    if (!buffer || length == 0) return buffer;
    wcsncpy(buffer, text, length - 1);
    buffer[length - 1] = L'\0';
    return buffer;
}

}  // namespace

_PROCADRINFO::_PROCADRINFO() = default;

int _PROCADRINFO::ResolveAddress(HANDLE process, unsigned long long address) {
    moduleValid_ = 0;
    swprintf(displayName_, 512, L"0x%016llX", address);
    source_[0] = L'\0';
    const DWORD pid = GetProcessId(process);
    lmvx::UniqueFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE | TH32CS_SNAPMODULE32, pid));
    if (!snapshot) return 0;
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL more = Module32FirstW(snapshot.Get(), &module); more; more = Module32NextW(snapshot.Get(), &module)) {
        const auto base = reinterpret_cast<unsigned long long>(module.modBaseAddr);
        if (address < base || address - base >= module.modBaseSize) continue;
        moduleValid_ = 1;
        swprintf(displayName_, 512, L"%ls+0x%llX", FileNamePart(module.szExePath), address - base);
        if (!FindSourceLine(process, address, source_, 512)) CopyOut(module.szExePath, source_, 512);
        break;
    }
    return moduleValid_;
}

int _PROCADRINFO::IsModuleValid() const { return moduleValid_; }

const wchar_t* _PROCADRINFO::GetDisplayName(wchar_t* buffer, unsigned length) const {
    return CopyOut(displayName_, buffer, length);
}

const wchar_t* _PROCADRINFO::GetSourceDisplayStr(wchar_t* buffer, unsigned length) const {
    return CopyOut(source_, buffer, length);
}

}  // namespace wren
