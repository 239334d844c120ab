// The symbol and source line at an address of another process, through the system folder's dbghelp.dll.
#pragma once
#include <windows.h>

#include <cstdint>
#include <string>

namespace lmvx {

struct SymbolTexts {
    std::wstring symbol;  // "module!name()", "module+0x%.8X", or `unknown`
    std::wstring source;  // "file(line)", or `unknown`
};

// One symbol session per call (initialise, look up, clean up). Without dbghelp both texts are `unknown`.
SymbolTexts LookUpSymbol(HANDLE process, uint64_t address, const wchar_t* unknown);

}  // namespace lmvx
