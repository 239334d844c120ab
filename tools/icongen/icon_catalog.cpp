#include "icon_catalog.h"

#include <cctype>

#include "icon_drawings.h"
#include "icon_ids.h"

namespace icongen {
namespace {

#define LMVX_ICON(constant, drawing) IconEntry{constant, #constant, drawing}

std::vector<IconEntry> BuildCatalog() {
    std::vector<IconEntry> icons{
        LMVX_ICON(IDI_LUMIVEX, DrawLumivex),
        LMVX_ICON(IDI_WINDOW, DrawWindow),
        LMVX_ICON(IDI_THREAD, DrawThread),
        LMVX_ICON(IDI_MODULE, DrawModule),
        LMVX_ICON(IDI_REGISTRY_KEY, DrawRegistryKey),
        LMVX_ICON(IDI_KERNEL_OBJECT, DrawKernelObject),
        LMVX_ICON(IDI_PROCESS, DrawProcess),
        LMVX_ICON(IDI_OBJECT_DIRECTORY, DrawObjectDirectory),
        LMVX_ICON(IDI_EVENT, DrawEvent),
        LMVX_ICON(IDI_TOKEN, DrawToken),
        LMVX_ICON(IDI_SECTION, DrawSection),
        LMVX_ICON(IDI_PORT, DrawPort),
        LMVX_ICON(IDI_GROUP, DrawGroup),
        LMVX_ICON(IDI_PRIVILEGE_ENABLED, DrawPrivilegeEnabled),
        LMVX_ICON(IDI_PRIVILEGE_DISABLED, DrawPrivilegeDisabled),
        LMVX_ICON(IDI_MEMORY, DrawMemory),
        LMVX_ICON(IDI_PERFORMANCE, DrawPerformance),
        LMVX_ICON(IDI_DETAILS_INFO, DrawInformation),
        LMVX_ICON(IDI_LIMITED_ACCESS, DrawLimitedAccess),
        LMVX_ICON(IDI_UNKNOWN_PROCESS, DrawUnknownProcess),
        LMVX_ICON(IDI_RUN, DrawRun),
        LMVX_ICON(IDI_KEEP_ON_TOP, DrawKeepOnTop),
        LMVX_ICON(IDI_PAGE_OUT, DrawPageOut),
        LMVX_ICON(IDI_SUSPEND_PROCESS, DrawSuspendProcess),
        LMVX_ICON(IDI_RESUME_PROCESS, DrawResumeProcess),
        LMVX_ICON(IDI_CLOSE_WINDOW, DrawCloseWindow),
        LMVX_ICON(IDI_BRING_TO_FRONT, DrawBringToFront),
        LMVX_ICON(IDI_OPEN_FOLDER, DrawOpenFolder),
        LMVX_ICON(IDI_TERMINATE_PROCESS, DrawTerminateProcess),
        LMVX_ICON(IDI_RESTART_PROCESS, DrawRestartProcess),
        LMVX_ICON(IDI_PROPERTIES, DrawProperties),
        LMVX_ICON(IDI_PROCESS_WINDOWS, DrawProcessWindows),
        LMVX_ICON(IDI_PRIORITY, DrawPriority),
        LMVX_ICON(IDI_SUSPEND_THREAD, DrawSuspendThread),
        LMVX_ICON(IDI_TERMINATE_THREAD, DrawTerminateThread),
        LMVX_ICON(IDI_PULSEWRIGHT, DrawPulsewright),
        LMVX_ICON(IDI_HEAPWRIGHT, DrawHeapwright),
        LMVX_ICON(IDI_OPTIONS, DrawOptions),
        LMVX_ICON(IDI_WEBSITE, DrawWebsite),
        LMVX_ICON(IDI_HELP, DrawHelp),
    };
    const int levelIds[] = {IDI_CPU_LEVEL_0, IDI_CPU_LEVEL_1, IDI_CPU_LEVEL_2, IDI_CPU_LEVEL_3,
                            IDI_CPU_LEVEL_4, IDI_CPU_LEVEL_5, IDI_CPU_LEVEL_6, IDI_CPU_LEVEL_7,
                            IDI_CPU_LEVEL_8, IDI_CPU_LEVEL_9, IDI_CPU_LEVEL_10};
    for (int level = 0; level <= 10; ++level) {
        icons.push_back({levelIds[level], "IDI_CPU_LEVEL_" + std::to_string(level),
                         [level](Canvas& c) { DrawCpuLevel(c, level); }});
    }
    return icons;
}

#undef LMVX_ICON

}  // namespace

const std::vector<IconEntry>& IconCatalog() {
    static const std::vector<IconEntry> catalog = BuildCatalog();
    return catalog;
}

std::string IconFileName(const std::string& constantName) {
    std::string base = constantName.rfind("IDI_", 0) == 0 ? constantName.substr(4) : constantName;
    for (char& ch : base)
        ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return base + ".ico";
}

}  // namespace icongen
