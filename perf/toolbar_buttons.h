// The main window's toolbar buttons as data: image, command and the two texts of each button.
#pragma once
#include <array>

#include "resource.h"

namespace lmvx {

inline constexpr int kToolbarSeparator = -1;

struct ToolbarButtonSpec {
    int image;              // index into the toolbar's image list, or kToolbarSeparator
    unsigned command;
    const wchar_t* english;
    const wchar_t* german;
};

inline constexpr std::array<ToolbarButtonSpec, 18> kToolbarButtons{{
    {0, IDM_RUN, L"Run...", L"Ausführen..."},
    {1, IDM_KEEP_IN_FOREGROUND, L"Keep Lumivex in Foreground", L"Immer im Vordergrund"},
    {kToolbarSeparator, 0, L"", L""},
    {2, IDM_PAGE_OUT_PROCESS, L"Page Out Process", L"Prozess auslagern"},
    {3, IDM_PAUSE_PROCESS, L"Suspend Process", L"Prozess anhalten"},
    {4, IDM_CLOSE_WINDOW, L"Close Window", L"Fenster schließen"},
    {5, IDM_BRING_TO_FRONT, L"Bring to Front", L"Wechseln zu"},
    {6, IDM_OPEN_CONTAINING_FOLDER, L"Open Containing Folder", L"Übergeordneten Ordner öffnen"},
    {7, IDM_TERMINATE_PROCESS, L"Terminate Process", L"Prozess abbrechen"},
    {8, IDM_RESTART_PROCESS, L"Restart Process", L"Prozess neu starten"},
    {9, IDM_PROPERTIES, L"Properties", L"Eigenschaften"},
    {kToolbarSeparator, 0, L"", L""},
    {10, IDM_TOOL_PULSEWRIGHT, L"Pulsewright", L"Pulsewright"},
    {11, IDM_TOOL_HEAPWRIGHT, L"Heapwright", L"Heapwright"},
    {12, IDM_OPTIONS, L"Options", L"Optionen"},
    {kToolbarSeparator, 0, L"", L""},
    {13, IDM_WEBSITE, L"Orvane Software online", L"Orvane Software online"},
    {14, IDM_HELP, L"Help", L"Hilfe"},
}};

// Icon resource of each toolbar image, in image order.
inline constexpr std::array<unsigned short, 15> kToolbarImageIcons{
    IDI_RUN,          IDI_KEEP_ON_TOP,       IDI_PAGE_OUT,        IDI_SUSPEND_PROCESS, IDI_CLOSE_WINDOW,
    IDI_BRING_TO_FRONT, IDI_OPEN_FOLDER,     IDI_TERMINATE_PROCESS, IDI_RESTART_PROCESS, IDI_PROPERTIES,
    IDI_PULSEWRIGHT,  IDI_HEAPWRIGHT,        IDI_OPTIONS,         IDI_WEBSITE,         IDI_HELP,
};

}  // namespace lmvx
