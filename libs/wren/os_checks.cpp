// Which Windows this is, asked of the kernel itself: GetVersionEx answers by the caller's manifest.
#include "wren.h"

#include "os_version.h"
#include "unique_resource.h"

namespace wren {
namespace {

RTL_OSVERSIONINFOW KernelVersion() {
    RTL_OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof(version);
    using RtlGetVersionFunction = LONG(WINAPI*)(RTL_OSVERSIONINFOW*);
    HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");   // always loaded; not ours to free
    auto rtlGetVersion =
        ntdll ? reinterpret_cast<RtlGetVersionFunction>(GetProcAddress(ntdll, "RtlGetVersion")) : nullptr;
    if (!rtlGetVersion || rtlGetVersion(&version) != 0) version = RTL_OSVERSIONINFOW{};
    return version;
}

}  // namespace

int IsOSVistaOrHigher() { return IsVersionVistaOrHigher(KernelVersion().dwMajorVersion) ? 1 : 0; }

int IsOSWindows2000() {
    const RTL_OSVERSIONINFOW version = KernelVersion();
    return IsVersionWindows2000(version.dwMajorVersion, version.dwMinorVersion) ? 1 : 0;
}

int IsThemeActive() {
    // uxtheme is looked up at run time, from the system folder only, so that the library also loads
    // where it is missing and never picks up a planted copy.
    UniqueModule uxtheme(LoadLibraryExW(L"uxtheme.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    if (!uxtheme) return 0;
    using IsThemeActiveFunction = BOOL(WINAPI*)();
    auto isThemeActive = reinterpret_cast<IsThemeActiveFunction>(GetProcAddress(uxtheme.Get(), "IsThemeActive"));
    return isThemeActive && isThemeActive() ? 1 : 0;
}

}  // namespace wren
