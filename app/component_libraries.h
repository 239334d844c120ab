// Where the program's libraries come from, and the forced load of the delay-loaded ones.
//
// The program runs elevated and with the debug privilege, so it must never pick up a planted DLL:
// from the first line of the entry point on, DLL searches cover only the system folder and the
// executable's own folder, and each library is loaded with an explicit search flag.
#pragma once
#include <windows.h>

namespace lmvx {

// Restricts every later DLL search of the process to the system folder and the executable's folder.
void RestrictLibrarySearch();

// Loads shell32 and comdlg32 from the system folder and kestrel64.dll and heron64.dll from the
// executable's folder, and binds every delay-loaded import of the two component libraries now.
// A library that cannot be loaded ends the process: see EndForMissingComponent.
void LoadComponentLibraries();

// For its lifetime, any exception that nothing else handles ends the process as a missing component does:
// the initialisation routine holds one, so that a library failing in any way during it (not only by a
// missing file or function) gives the same message. Outside the routine the system's own handling applies.
class ComponentFailureHandler {
public:
    ComponentFailureHandler();
    ~ComponentFailureHandler();
    ComponentFailureHandler(const ComponentFailureHandler&) = delete;
    ComponentFailureHandler& operator=(const ComponentFailureHandler&) = delete;

private:
    LPTOP_LEVEL_EXCEPTION_FILTER previous_;
};

// The message box about a missing component, then the process ends with ERROR_DLL_NOT_FOUND (1157).
[[noreturn]] void EndForMissingComponent();

}  // namespace lmvx
