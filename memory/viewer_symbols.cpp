#include "memory/viewer_symbols.h"

#include <dbghelp.h>

#include "common/unique_resource.h"
#include "memory/memory_ui.h"

namespace lmvx {
namespace {

// dbghelp.dll of the system folder, loaded once for the program's run (never from the program's folder).
struct DbgHelp {
    decltype(&SymSetOptions) setOptions = nullptr;
    decltype(&SymInitializeW) initialize = nullptr;
    decltype(&SymCleanup) cleanup = nullptr;
    decltype(&SymFromAddr) fromAddr = nullptr;
    decltype(&SymGetModuleInfoW64) moduleInfo = nullptr;
    decltype(&SymGetLineFromAddrW64) lineFromAddr = nullptr;
    decltype(&UnDecorateSymbolName) undecorate = nullptr;
    bool IsComplete() const {
        return setOptions && initialize && cleanup && fromAddr && moduleInfo && lineFromAddr && undecorate;
    }
};

template <typename Function>
void Find(HMODULE module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

const DbgHelp& LoadDbgHelp() {
    static const DbgHelp functions = [] {
        DbgHelp loaded;
        wchar_t path[MAX_PATH];
        const UINT length = GetSystemDirectoryW(path, MAX_PATH - 16);
        if (length == 0 || length >= MAX_PATH - 16) return loaded;
        lstrcatW(path, L"\\dbghelp.dll");
        HMODULE module = LoadLibraryExW(path, nullptr, 0);  // kept for the program's run
        if (!module) return loaded;
        Find(module, "SymSetOptions", loaded.setOptions);
        Find(module, "SymInitializeW", loaded.initialize);
        Find(module, "SymCleanup", loaded.cleanup);
        Find(module, "SymFromAddr", loaded.fromAddr);
        Find(module, "SymGetModuleInfoW64", loaded.moduleInfo);
        Find(module, "SymGetLineFromAddrW64", loaded.lineFromAddr);
        Find(module, "UnDecorateSymbolName", loaded.undecorate);
        return loaded;
    }();
    return functions;
}

}  // namespace

SymbolTexts LookUpSymbol(HANDLE process, uint64_t address, const wchar_t* unknown) {
    SymbolTexts texts{unknown, unknown};
    const DbgHelp& dbg = LoadDbgHelp();
    if (!dbg.IsComplete()) return texts;
    dbg.setOptions(SYMOPT_UNDNAME | SYMOPT_DEFERRED_LOADS);
    if (!dbg.initialize(process, nullptr, TRUE)) return texts;

    alignas(SYMBOL_INFO) char symbolBuffer[sizeof(SYMBOL_INFO) + 512];
    auto* symbol = reinterpret_cast<SYMBOL_INFO*>(symbolBuffer);
    *symbol = SYMBOL_INFO{};
    symbol->SizeOfStruct = sizeof(SYMBOL_INFO);
    symbol->MaxNameLen = 512;
    DWORD64 displacement = 0;
    const bool haveSymbol = dbg.fromAddr(process, address, &displacement, symbol) != FALSE;
    IMAGEHLP_MODULEW64 module{};
    module.SizeOfStruct = sizeof module;
    const bool haveModule = dbg.moduleInfo(process, address, &module) != FALSE;
    if (haveModule && haveSymbol) {
        char undecorated[512] = {};
        if (!dbg.undecorate(symbol->Name, undecorated, sizeof undecorated, UNDNAME_COMPLETE)) {
            lstrcpynA(undecorated, symbol->Name, sizeof undecorated);
        }
        texts.symbol = FormatText(L"%s!%S()", FileNameOfPath(module.ImageName), undecorated);
    } else if (haveModule) {
        texts.symbol = FormatText(L"%s+0x%.8X", FileNameOfPath(module.ImageName),
                              static_cast<unsigned>(address - module.BaseOfImage));
    }
    IMAGEHLP_LINEW64 line{};
    line.SizeOfStruct = sizeof line;
    DWORD lineDisplacement = 0;
    if (dbg.lineFromAddr(process, address, &lineDisplacement, &line) && line.FileName) {
        texts.source = FormatText(L"%s(%d)", line.FileName, static_cast<int>(line.LineNumber));
    }
    dbg.cleanup(process);
    return texts;
}

}  // namespace lmvx
