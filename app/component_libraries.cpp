#include "app/component_libraries.h"

#include <windows.h>

#include <string>

// The MinGW delay-load helper: binds one delay-loaded import on first use (or when asked to).
extern "C" FARPROC WINAPI __delayLoadHelper2(const IMAGE_DELAYLOAD_DESCRIPTOR* descriptor, FARPROC* importEntry);
// This executable's image base, provided by the linker.
extern "C" const IMAGE_DOS_HEADER __ImageBase;
// The import descriptor of kestrel64.dll in the delay-import library the build makes from its exports.
// The linker does not fill the image's delay-import directory, so the descriptor is named directly.
extern "C" const IMAGE_DELAYLOAD_DESCRIPTOR __DELAY_IMPORT_DESCRIPTOR_libkestrel64_delay_a;

namespace lmvx {
namespace {

LONG WINAPI OnUnhandledDuringInitialisation(EXCEPTION_POINTERS*) {
    EndForMissingComponent();
}

void LoadFromSystemFolder(const wchar_t* name) {
    if (!LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) EndForMissingComponent();
}

// Binds every import of one delay-loaded library now, so that no call later on can fail to bind.
void BindAllImports(const IMAGE_DELAYLOAD_DESCRIPTOR& descriptor) {
    const auto* base = reinterpret_cast<const BYTE*>(&__ImageBase);
    auto* importAddresses = reinterpret_cast<FARPROC*>(const_cast<BYTE*>(base) + descriptor.ImportAddressTableRVA);
    const auto* importNames = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + descriptor.ImportNameTableRVA);
    for (size_t i = 0; importNames[i].u1.AddressOfData != 0; ++i) {
        if (!__delayLoadHelper2(&descriptor, &importAddresses[i])) EndForMissingComponent();
    }
}

// The full path of a file beside this executable.
std::wstring BesideExecutable(const wchar_t* name) {
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    folder.resize(folder.find_last_of(L"\\/") + 1);
    return folder + name;
}

void LoadComponent(const wchar_t* name, const IMAGE_DELAYLOAD_DESCRIPTOR* descriptor) {
    // By full path, so the library can only come from our own folder; its own imports are looked for in
    // its folder and the system folder only.
    const std::wstring path = BesideExecutable(name);
    if (!LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32)) {
        EndForMissingComponent();
    }
    if (descriptor) BindAllImports(*descriptor);
}

}  // namespace

void RestrictLibrarySearch() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_APPLICATION_DIR);
    // Also drop the current directory from the legacy search path used by callers we do not control.
    SetDllDirectoryW(L"");
}

ComponentFailureHandler::ComponentFailureHandler()
    : previous_(SetUnhandledExceptionFilter(OnUnhandledDuringInitialisation)) {}

ComponentFailureHandler::~ComponentFailureHandler() {
    SetUnhandledExceptionFilter(previous_);
}

void LoadComponentLibraries() {
    LoadFromSystemFolder(L"shell32.dll");
    LoadFromSystemFolder(L"comdlg32.dll");
    LoadComponent(L"kestrel64.dll", &__DELAY_IMPORT_DESCRIPTOR_libkestrel64_delay_a);
    // Nothing calls into heron64.dll yet, so it has no delay-import descriptor to bind; it must load all the same.
    LoadComponent(L"heron64.dll", nullptr);
}

void EndForMissingComponent() {
    MessageBoxW(nullptr,
                L"A component required for the execution of Lumivex was not found.\n"
                L"Reinstall the application to resolve this problem.",
                L"Lumivex", MB_ICONERROR | MB_SYSTEMMODAL);
    ExitProcess(ERROR_DLL_NOT_FOUND);
}

}  // namespace lmvx
