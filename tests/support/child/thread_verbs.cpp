// Verbs for the thread and module views: known-threads (threads that each do one known thing), deep-stack
// and many-modules.
#include "verbs.h"

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <vector>

namespace lmvx_test_child {

namespace {

DWORD WINAPI BurnForever(void*) {
    volatile unsigned long long sink = 0;
    for (;;) sink = sink + 1;
}

DWORD WINAPI NeverRuns(void*) { return 0; }

// The blocked thread waits here; its call stack shows this function's name. Kept out of line on purpose.
__attribute__((noinline)) DWORD BlockedInChildWait(HANDLE event) {
    SetLastError(ERROR_FILE_NOT_FOUND);   // a last error the thread views can show
    const DWORD result = WaitForSingleObject(event, INFINITE);
    return result + 1;
}

DWORD WINAPI BlockedThread(void* event) { return BlockedInChildWait(static_cast<HANDLE>(event)); }

// One visible titled window; created = set once it exists.
DWORD WINAPI WindowThread(void* created) {
    HWND window = CreateWindowExW(0, L"STATIC", L"Lumivex test thread window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                                  300, 120, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetEvent(static_cast<HANDLE>(created));
    if (!window) return 1;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}

// One frame per level, so the stack is as deep as asked. Kept out of line and not a tail call on purpose.
__attribute__((noinline)) DWORD Recurse(DWORD depth, DWORD milliseconds) {
    if (depth <= 1) {
        Sleep(milliseconds);
        return 0;
    }
    volatile DWORD below = Recurse(depth - 1, milliseconds);
    return below + 1;
}

}  // namespace

int DeepStackVerb(Arguments arguments) {
    if (arguments.size() < 2) return ExitUsage;
    return static_cast<int>(Recurse(std::wcstoul(arguments[0], nullptr, 10), std::wcstoul(arguments[1], nullptr, 10)) * 0);
}

int KnownThreadsVerb(Arguments arguments) {
    if (arguments.size() < 2) return ExitUsage;
    const DWORD milliseconds = std::wcstoul(arguments[1], nullptr, 10);
    // A library loaded for the test alone, for the module views to find.
    if (!LoadLibraryW(L"version.dll")) return ExitFailed;
    HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE windowCreated = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    DWORD burn = 0, suspended = 0, blocked = 0, window = 0;
    HANDLE threads[] = {
        CreateThread(nullptr, 0, BurnForever, nullptr, 0, &burn),
        CreateThread(nullptr, 0, NeverRuns, nullptr, CREATE_SUSPENDED, &suspended),
        CreateThread(nullptr, 0, BlockedThread, never, 0, &blocked),
        CreateThread(nullptr, 0, WindowThread, windowCreated, 0, &window),
    };
    for (HANDLE thread : threads) {
        if (!thread) return ExitFailed;
    }
    WaitForSingleObject(windowCreated, 10000);
    // Written last, so a reader that finds the file finds every id.
    wchar_t text[128];
    std::swprintf(text, 128, L"%lu %lu %lu %lu", burn, suspended, blocked, window);
    if (!WriteWholeFile(arguments[0], text)) return ExitFailed;
    Sleep(milliseconds);
    return 0;
}

}  // namespace lmvx_test_child

namespace lmvx_test_child {

namespace {

// The smallest DLL the loader accepts: headers and one empty data section, no code, no imports, no version
// data. Each copy asks for a base of its own, so that none needs relocating.
std::vector<unsigned char> EmptyDll(ULONGLONG imageBase) {
    constexpr DWORD kFileAlignment = 0x200, kSectionAlignment = 0x1000;
    std::vector<unsigned char> file(2 * kFileAlignment, 0);
    auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(file.data());
    dos->e_magic = IMAGE_DOS_SIGNATURE;
    dos->e_lfanew = sizeof(IMAGE_DOS_HEADER);
    auto* nt = reinterpret_cast<IMAGE_NT_HEADERS64*>(file.data() + dos->e_lfanew);
    nt->Signature = IMAGE_NT_SIGNATURE;
    nt->FileHeader.Machine = IMAGE_FILE_MACHINE_AMD64;
    nt->FileHeader.NumberOfSections = 1;
    nt->FileHeader.SizeOfOptionalHeader = sizeof(IMAGE_OPTIONAL_HEADER64);
    nt->FileHeader.Characteristics = IMAGE_FILE_EXECUTABLE_IMAGE | IMAGE_FILE_DLL | IMAGE_FILE_LARGE_ADDRESS_AWARE;
    IMAGE_OPTIONAL_HEADER64& optional = nt->OptionalHeader;
    optional.Magic = IMAGE_NT_OPTIONAL_HDR64_MAGIC;
    optional.SizeOfInitializedData = kFileAlignment;
    optional.ImageBase = imageBase;
    optional.SectionAlignment = kSectionAlignment;
    optional.FileAlignment = kFileAlignment;
    optional.MajorOperatingSystemVersion = optional.MajorSubsystemVersion = 6;
    optional.SizeOfImage = 2 * kSectionAlignment;
    optional.SizeOfHeaders = kFileAlignment;
    optional.Subsystem = IMAGE_SUBSYSTEM_WINDOWS_GUI;
    optional.SizeOfStackReserve = optional.SizeOfHeapReserve = 0x100000;
    optional.SizeOfStackCommit = optional.SizeOfHeapCommit = 0x1000;
    optional.NumberOfRvaAndSizes = IMAGE_NUMBEROF_DIRECTORY_ENTRIES;
    auto* section = reinterpret_cast<IMAGE_SECTION_HEADER*>(nt + 1);
    std::memcpy(section->Name, ".data", 5);
    section->Misc.VirtualSize = kFileAlignment;
    section->VirtualAddress = kSectionAlignment;
    section->SizeOfRawData = kFileAlignment;
    section->PointerToRawData = kFileAlignment;
    section->Characteristics = IMAGE_SCN_CNT_INITIALIZED_DATA | IMAGE_SCN_MEM_READ;
    return file;
}

}  // namespace

int ManyModulesVerb(Arguments arguments) {
    if (arguments.size() < 3) return ExitUsage;
    const unsigned count = std::wcstoul(arguments[1], nullptr, 10);
    for (unsigned i = 0; i < count; ++i) {
        const std::vector<unsigned char> dll = EmptyDll(0x600000000ull + i * 0x10000ull);
        wchar_t path[MAX_PATH];
        std::swprintf(path, MAX_PATH, L"%ls\\empty%03u.dll", arguments[0], i);
        if (!WriteWholeFile(path, dll.data(), dll.size()) || !LoadLibraryW(path)) return ExitFailed;
    }
    wchar_t loaded[MAX_PATH];   // tells the test that every copy is loaded
    std::swprintf(loaded, MAX_PATH, L"%ls\\loaded", arguments[0]);
    if (!WriteWholeFile(loaded, L"")) return ExitFailed;
    Sleep(std::wcstoul(arguments[2], nullptr, 10));
    return 0;
}

}  // namespace lmvx_test_child
