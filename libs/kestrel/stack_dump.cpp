// _SI_STACKDUMP: the call stack of a thread of another process, through the system's debug help library.
#include "kestrel.h"

#include <dbghelp.h>
#include <tlhelp32.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "unique_resource.h"

namespace kestrel {

// The program reads these fields at fixed places; keep the record's layout.
static_assert(offsetof(_SI_STACKFRAME, callText) == 8);
static_assert(offsetof(_SI_STACKFRAME, functionValid) == 1032);
static_assert(offsetof(_SI_STACKFRAME, functionText) == 2060);
static_assert(offsetof(_SI_STACKFRAME, modulePath) == 2580);
static_assert(offsetof(_SI_STACKFRAME, sourceText) == 3100);

namespace detail {

struct StackFrames {
    std::vector<_SI_STACKFRAME> frames;
};

namespace {

// A deep recursion would otherwise walk for a long time; no one reads further than this.
constexpr unsigned MaxFrames = 1024;

// The debug help calls, from the system folder's dbghelp.dll (never one beside the program).
struct DebugHelp {
    decltype(&SymSetOptions) setOptions = nullptr;
    decltype(&SymInitializeW) initialize = nullptr;
    decltype(&SymCleanup) cleanup = nullptr;
    decltype(&StackWalk64) stackWalk = nullptr;
    decltype(&SymFunctionTableAccess64) functionTableAccess = nullptr;
    decltype(&SymFromAddrW) fromAddress = nullptr;
    decltype(&SymGetModuleInfoW64) moduleInfo = nullptr;
    decltype(&SymGetLineFromAddrW64) lineFromAddress = nullptr;
    decltype(&SymLoadModuleExW) loadModule = nullptr;

    bool Complete() const {
        return setOptions && initialize && cleanup && stackWalk && functionTableAccess && fromAddress &&
               moduleInfo && lineFromAddress && loadModule;
    }
};

template <typename Function>
void Bind(HMODULE module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

const DebugHelp* LoadDebugHelp() {
    static const DebugHelp* loaded = []() -> const DebugHelp* {
        wchar_t path[MAX_PATH];
        const UINT length = GetSystemDirectoryW(path, MAX_PATH);
        if (length == 0 || length > MAX_PATH - 16) return nullptr;
        std::wcscat(path, L"\\dbghelp.dll");
        HMODULE module = LoadLibraryExW(path, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);   // kept for the process's life
        if (!module) return nullptr;
        static DebugHelp help;
        Bind(module, "SymSetOptions", help.setOptions);
        Bind(module, "SymInitializeW", help.initialize);
        Bind(module, "SymCleanup", help.cleanup);
        Bind(module, "StackWalk64", help.stackWalk);
        Bind(module, "SymFunctionTableAccess64", help.functionTableAccess);
        Bind(module, "SymFromAddrW", help.fromAddress);
        Bind(module, "SymGetModuleInfoW64", help.moduleInfo);
        Bind(module, "SymGetLineFromAddrW64", help.lineFromAddress);
        Bind(module, "SymLoadModuleExW", help.loadModule);
        return help.Complete() ? &help : nullptr;
    }();
    return loaded;
}

// The debug help library is not thread-safe, and two call stack windows may walk at once.
std::mutex& DebugHelpLock() {
    static std::mutex lock;
    return lock;
}

// Resumes the thread when the walk ends, however it ends.
class SuspendedThread {
public:
    explicit SuspendedThread(HANDLE thread) : thread_(thread), suspended_(SuspendThread(thread) != static_cast<DWORD>(-1)) {}
    ~SuspendedThread() {
        if (suspended_) ResumeThread(thread_);
    }
    SuspendedThread(const SuspendedThread&) = delete;
    SuspendedThread& operator=(const SuspendedThread&) = delete;
    bool Suspended() const { return suspended_; }

private:
    HANDLE thread_;
    bool suspended_;
};

// Options of every walk. Symbols of the program's own modules load when a name is first asked for, with line
// numbers; modules of the Windows folder load at once with their exported names only (below).
constexpr DWORD WalkOptions = SYMOPT_UNDNAME | SYMOPT_DEFERRED_LOADS | SYMOPT_LOAD_LINES | SYMOPT_FAIL_CRITICAL_ERRORS;
constexpr DWORD SystemModuleOptions = SYMOPT_UNDNAME | SYMOPT_PUBLICS_ONLY | SYMOPT_FAIL_CRITICAL_ERRORS;

bool InWindowsFolder(const wchar_t* path) {
    static const std::wstring folder = [] {
        wchar_t windows[MAX_PATH];
        const UINT length = GetWindowsDirectoryW(windows, MAX_PATH);
        return length == 0 || length >= MAX_PATH ? std::wstring() : std::wstring(windows, length) + L"\\";
    }();
    return !folder.empty() && _wcsnicmp(path, folder.c_str(), folder.size()) == 0;
}

// What one walk needs besides the library: the process's modules, handed to the library only when the walk
// reaches them (letting it look for all of them itself, "invading" the process, costs seconds under Wine,
// which lists the host's own libraries too), and the pages of the process's memory read so far: the walk
// reads the stack in many small pieces, and each read of another process's memory is a round trip.
//
// The library knows the walk by a value of its own rather than the process handle: it then reads everything
// through the walk's callbacks and the module files, and does not first look through the whole process for
// the host's loader as it does for a live process under Wine. The system's modules are told to the library
// with their exported names only: their full debug data (megabytes in Wine's own libraries) is what made a
// walk slow. Their frames are named from the module's export table instead (ExportedFunction).
class WalkSession {
public:
    WalkSession(const DebugHelp& help, HANDLE process) : help_(help), process_(process) {
        lmvx::UniqueFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetProcessId(process)));
        if (!snapshot) return;
        MODULEENTRY32W entry{};
        entry.dwSize = sizeof entry;
        for (BOOL more = Module32FirstW(snapshot.Get(), &entry); more; more = Module32NextW(snapshot.Get(), &entry)) {
            modules_.push_back({entry, InWindowsFolder(entry.szExePath)});
        }
    }

    // What the library knows the walk by.
    HANDLE Identity() const { return const_cast<WalkSession*>(this); }

    // The base of the module holding the address, told to the library first if it does not know it yet.
    DWORD64 ModuleBase(DWORD64 address) {
        Module* module = ModuleAt(address);
        if (!module) return 0;
        const DWORD64 base = module->Base();
        if (!module->loaded) {
            if (module->system) help_.setOptions(SystemModuleOptions);   // not deferred: loads now, with these options
            help_.loadModule(Identity(), nullptr, module->entry.szExePath, module->entry.szModule, base,
                             module->entry.modBaseSize, nullptr, 0);
            if (module->system) help_.setOptions(WalkOptions);
            module->loaded = true;
        }
        return base;
    }

    // The exported name of the function that holds the address in a module of the system: the function's
    // start comes from the module's unwind table, and the function is named when an export points at that
    // start (never the nearest export before it, which would name the wrong function). Empty otherwise.
    std::wstring ExportedFunction(DWORD64 address, DWORD64& start) {
        Module* module = ModuleAt(address);
        if (!module || !module->system || !module->loaded) return {};
        const auto* function = static_cast<const RUNTIME_FUNCTION*>(help_.functionTableAccess(Identity(), address));
        if (!function) return {};
        if (!module->exportsRead) ReadExports(*module);
        const auto found = module->exports.find(function->BeginAddress);
        if (found == module->exports.end()) return {};
        start = module->Base() + function->BeginAddress;
        return found->second;
    }

    bool Read(DWORD64 address, void* buffer, DWORD size, DWORD* read) {
        auto* target = static_cast<unsigned char*>(buffer);
        DWORD done = 0;
        while (done < size) {
            const DWORD64 at = address + done;
            const std::vector<unsigned char>* page = Page(at & ~(PageSize - 1));
            if (!page) break;
            const DWORD offset = static_cast<DWORD>(at & (PageSize - 1));
            const DWORD length = std::min<DWORD>(size - done, PageSize - offset);
            std::memcpy(target + done, page->data() + offset, length);
            done += length;
        }
        if (read) *read = done;
        return done == size;
    }

private:
    static constexpr DWORD64 PageSize = 4096;
    struct Module {
        MODULEENTRY32W entry;
        bool system;
        bool loaded = false;
        bool exportsRead = false;
        std::unordered_map<DWORD, std::wstring> exports;   // by the function's address in the module
        DWORD64 Base() const { return reinterpret_cast<DWORD64>(entry.modBaseAddr); }
    };

    Module* ModuleAt(DWORD64 address) {
        for (Module& module : modules_) {
            if (address >= module.Base() && address - module.Base() < module.entry.modBaseSize) return &module;
        }
        return nullptr;
    }

    template <typename Item>
    bool ReadArray(DWORD64 address, std::vector<Item>& items) {
        return Read(address, items.data(), static_cast<DWORD>(items.size() * sizeof(Item)), nullptr);
    }

    // The export table as the process has it mapped.
    void ReadExports(Module& module) {
        module.exportsRead = true;
        const DWORD64 base = module.Base();
        IMAGE_DOS_HEADER dos{};
        IMAGE_NT_HEADERS64 nt{};
        if (!Read(base, &dos, sizeof dos, nullptr) || dos.e_magic != IMAGE_DOS_SIGNATURE ||
            !Read(base + dos.e_lfanew, &nt, sizeof nt, nullptr) || nt.Signature != IMAGE_NT_SIGNATURE) {
            return;
        }
        const IMAGE_DATA_DIRECTORY& directory = nt.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
        IMAGE_EXPORT_DIRECTORY exports{};
        if (directory.Size == 0 || !Read(base + directory.VirtualAddress, &exports, sizeof exports, nullptr)) return;
        std::vector<DWORD> functions(std::min<DWORD>(exports.NumberOfFunctions, 0x10000));
        std::vector<DWORD> names(std::min<DWORD>(exports.NumberOfNames, 0x10000));
        std::vector<WORD> ordinals(names.size());
        if (!ReadArray(base + exports.AddressOfFunctions, functions) || !ReadArray(base + exports.AddressOfNames, names) ||
            !ReadArray(base + exports.AddressOfNameOrdinals, ordinals)) {
            return;
        }
        for (size_t i = 0; i < names.size(); ++i) {
            if (ordinals[i] >= functions.size()) continue;
            char name[256] = {};
            Read(base + names[i], name, sizeof name - 1, nullptr);   // a name near the image's end reads short
            module.exports.emplace(functions[ordinals[i]], std::wstring(name, name + std::strlen(name)));
        }
    }

    const std::vector<unsigned char>* Page(DWORD64 start) {
        const auto found = pages_.find(start);
        if (found != pages_.end()) return found->second.empty() ? nullptr : &found->second;
        std::vector<unsigned char> page(PageSize);
        SIZE_T read = 0;
        if (!ReadProcessMemory(process_, reinterpret_cast<const void*>(start), page.data(), PageSize, &read) ||
            read != PageSize) {
            page.clear();   // remembered as unreadable
        }
        const auto& kept = pages_.emplace(start, std::move(page)).first->second;
        return kept.empty() ? nullptr : &kept;
    }

    const DebugHelp& help_;
    HANDLE process_;
    std::vector<Module> modules_;
    std::unordered_map<DWORD64, std::vector<unsigned char>> pages_;
};

// The walk's callbacks carry no context of their own; the session of the walk in progress is here, and only
// one walk runs at a time (DebugHelpLock).
WalkSession* activeSession = nullptr;

BOOL CALLBACK ReadSessionMemory(HANDLE, DWORD64 address, void* buffer, DWORD size, DWORD* read) {
    return activeSession->Read(address, buffer, size, read) ? TRUE : FALSE;
}

DWORD64 CALLBACK SessionModuleBase(HANDLE, DWORD64 address) { return activeSession->ModuleBase(address); }

void* CALLBACK SessionFunctionTable(HANDLE session, DWORD64 address) {
    activeSession->ModuleBase(address);   // the table is found only in a module the library knows
    return LoadDebugHelp()->functionTableAccess(session, address);
}

struct RawFrame {
    DWORD64 programCounter;
    DWORD64 returnAddress;
};

// The instruction and return addresses of every frame, taken while the thread is held still.
bool WalkFrames(const DebugHelp& help, HANDLE session, HANDLE thread, std::vector<RawFrame>& frames) {
    SuspendedThread hold(thread);
    if (!hold.Suspended()) return false;
    CONTEXT context{};
    context.ContextFlags = CONTEXT_FULL;
    if (!GetThreadContext(thread, &context)) return false;
    STACKFRAME64 frame{};
    frame.AddrPC.Offset = context.Rip;
    frame.AddrPC.Mode = AddrModeFlat;
    frame.AddrFrame.Offset = context.Rsp;
    frame.AddrFrame.Mode = AddrModeFlat;
    frame.AddrStack.Offset = context.Rsp;
    frame.AddrStack.Mode = AddrModeFlat;
    while (frames.size() < MaxFrames &&
           help.stackWalk(IMAGE_FILE_MACHINE_AMD64, session, thread, &frame, &context, ReadSessionMemory,
                          SessionFunctionTable, SessionModuleBase, nullptr)) {
        if (frame.AddrPC.Offset == 0) break;
        frames.push_back({frame.AddrPC.Offset, frame.AddrReturn.Offset});
    }
    return !frames.empty();
}

const wchar_t* FileNameOf(const wchar_t* path) {
    const wchar_t* name = path;
    for (const wchar_t* c = path; *c; ++c) {
        if (*c == L'\\' || *c == L'/') name = c + 1;
    }
    return name;
}

void CopyText(wchar_t* target, size_t capacity, const wchar_t* text) {
    std::wcsncpy(target, text, capacity - 1);
    target[capacity - 1] = L'\0';
}

void SetFunction(_SI_STACKFRAME& frame, const wchar_t* name, DWORD64 start) {
    frame.functionAddress64 = start;
    frame.functionAddress = static_cast<unsigned>(start);
    frame.functionValid = 1;
    const DWORD64 displacement = frame.programCounter - start;
    if (displacement != 0) {
        std::swprintf(frame.functionText, 260, L"%ls+0x%llx", name, displacement);
    } else {
        CopyText(frame.functionText, 260, name);
    }
}

_SI_STACKFRAME DescribeFrame(const DebugHelp& help, WalkSession& session, const RawFrame& raw) {
    _SI_STACKFRAME frame{};
    frame.programCounter = raw.programCounter;
    frame.returnAddress64 = raw.returnAddress;
    frame.returnAddress = static_cast<unsigned>(raw.returnAddress);

    IMAGEHLP_MODULEW64 module{};
    module.SizeOfStruct = sizeof module;
    if (help.moduleInfo(session.Identity(), raw.programCounter, &module)) {
        CopyText(frame.modulePath, 260, module.LoadedImageName[0] ? module.LoadedImageName : module.ImageName);
        CopyText(frame.moduleName, 512, FileNameOf(frame.modulePath));
    }

    alignas(SYMBOL_INFOW) unsigned char symbolBuffer[sizeof(SYMBOL_INFOW) + 256 * sizeof(wchar_t)] = {};
    auto* symbol = reinterpret_cast<SYMBOL_INFOW*>(symbolBuffer);
    symbol->SizeOfStruct = sizeof(SYMBOL_INFOW);
    symbol->MaxNameLen = 256;
    DWORD64 displacement = 0;
    DWORD64 start = 0;
    if (help.fromAddress(session.Identity(), raw.programCounter, &displacement, symbol)) {
        SetFunction(frame, symbol->Name, symbol->Address);
    } else if (const std::wstring exported = session.ExportedFunction(raw.programCounter, start); !exported.empty()) {
        SetFunction(frame, exported.c_str(), start);
    }

    IMAGEHLP_LINEW64 line{};
    line.SizeOfStruct = sizeof line;
    DWORD lineDisplacement = 0;
    if (help.lineFromAddress(session.Identity(), raw.programCounter, &lineDisplacement, &line) && line.FileName) {
        std::swprintf(frame.sourceText, 512, L"%ls(%lu)", line.FileName, line.LineNumber);
    }

    if (frame.functionValid && frame.moduleName[0]) {
        std::swprintf(frame.callText, 512, L"%ls!%ls", frame.moduleName, frame.functionText);
    } else if (frame.moduleName[0]) {
        std::swprintf(frame.callText, 512, L"%ls+0x%llx", frame.moduleName, raw.programCounter - module.BaseOfImage);
    } else {
        std::swprintf(frame.callText, 512, L"0x%.16llX", raw.programCounter);
    }
    return frame;
}

}  // namespace
}  // namespace detail

_SI_STACKDUMP::~_SI_STACKDUMP() { delete frames_; }

int _SI_STACKDUMP::CreateStackDump(HANDLE process, HANDLE thread, const wchar_t*) {
    using namespace detail;
    frameCount = 0;
    if (!frames_) frames_ = new (std::nothrow) StackFrames;
    if (!frames_ || !process || !thread || GetThreadId(thread) == GetCurrentThreadId()) return 0;
    frames_->frames.clear();
    const DebugHelp* help = LoadDebugHelp();
    if (!help) return 0;

    std::lock_guard<std::mutex> lock(DebugHelpLock());
    help->setOptions(WalkOptions);
    WalkSession session(*help, process);
    if (!help->initialize(session.Identity(), nullptr, FALSE)) return 0;
    activeSession = &session;
    std::vector<RawFrame> raw;
    const bool walked = WalkFrames(*help, session.Identity(), thread, raw);
    activeSession = nullptr;
    // Names are looked up after the thread runs again: symbol loading can take long.
    for (const RawFrame& frame : raw) frames_->frames.push_back(DescribeFrame(*help, session, frame));
    help->cleanup(session.Identity());
    if (!walked) {
        frames_->frames.clear();
        return 0;
    }
    frameCount = static_cast<unsigned>(frames_->frames.size());
    return 1;
}

_SI_STACKFRAME _SI_STACKDUMP::GetFrame(unsigned index) const {
    if (!frames_ || index >= frames_->frames.size()) return _SI_STACKFRAME{};
    return frames_->frames[index];
}

}  // namespace kestrel
