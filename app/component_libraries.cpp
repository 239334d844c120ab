#include "app/component_libraries.h"

#include <windows.h>

// The delay-load helper's "bind every import of one library now" (MinGW runtime).
extern "C" HRESULT WINAPI __HrLoadAllImportsForDll(LPCSTR dllName);

namespace lmvx {
namespace {

// Exception codes the delay-load helper raises when a library or one of its functions is missing.
constexpr DWORD kDelayLoadModuleNotFound = 0xC06D007E;
constexpr DWORD kDelayLoadProcNotFound = 0xC06D007F;

LONG CALLBACK OnDelayLoadFailure(EXCEPTION_POINTERS* info) {
    const DWORD code = info->ExceptionRecord->ExceptionCode;
    if (code == kDelayLoadModuleNotFound || code == kDelayLoadProcNotFound) EndForMissingComponent();
    return EXCEPTION_CONTINUE_SEARCH;
}

void LoadFromSystemFolder(const wchar_t* name) {
    if (!LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) EndForMissingComponent();
}

// True when this executable imports the library through the delay-load table.
bool HasDelayImport(const char* name) {
    auto* base = reinterpret_cast<const BYTE*>(GetModuleHandleW(nullptr));
    auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT];
    if (directory.VirtualAddress == 0) return false;
    for (auto* entry = reinterpret_cast<const IMAGE_DELAYLOAD_DESCRIPTOR*>(base + directory.VirtualAddress);
         entry->DllNameRVA != 0; ++entry) {
        if (lstrcmpiA(reinterpret_cast<const char*>(base + entry->DllNameRVA), name) == 0) return true;
    }
    return false;
}

void LoadComponent(const wchar_t* wideName, const char* name) {
    if (!LoadLibraryExW(wideName, nullptr, LOAD_LIBRARY_SEARCH_APPLICATION_DIR)) EndForMissingComponent();
    if (HasDelayImport(name) && FAILED(__HrLoadAllImportsForDll(name))) EndForMissingComponent();
}

}  // namespace

void RestrictLibrarySearch() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_APPLICATION_DIR);
    // Also drop the current directory from the legacy search path used by callers we do not control.
    SetDllDirectoryW(L"");
    // A lazily bound import that fails later on ends the program the same way as a failed forced load.
    AddVectoredExceptionHandler(1, OnDelayLoadFailure);
}

void LoadComponentLibraries() {
    LoadFromSystemFolder(L"shell32.dll");
    LoadFromSystemFolder(L"comdlg32.dll");
    LoadComponent(L"kestrel64.dll", "kestrel64.dll");
    LoadComponent(L"heron64.dll", "heron64.dll");
}

void EndForMissingComponent() {
    MessageBoxW(nullptr,
                L"A component required for the execution of Lumivex was not found.\n"
                L"Reinstall the application to resolve this problem.",
                L"Lumivex", MB_ICONERROR | MB_SYSTEMMODAL);
    ExitProcess(ERROR_DLL_NOT_FOUND);
}

}  // namespace lmvx
