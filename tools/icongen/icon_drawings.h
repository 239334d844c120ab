// One drawing per icon meaning. Each draws on a 32 x 32 unit canvas of any pixel size.
#pragma once

#include "canvas.h"

namespace icongen {

// The program's mark and the CPU usage levels (icons_system.cpp).
void DrawLumivex(Canvas& c);
void DrawCpuLevel(Canvas& c, int level);  // level 0 to 10
void DrawMemory(Canvas& c);
void DrawPerformance(Canvas& c);
void DrawInformation(Canvas& c);
void DrawLimitedAccess(Canvas& c);
void DrawPulsewright(Canvas& c);
void DrawHeapwright(Canvas& c);
void DrawOptions(Canvas& c);
void DrawWebsite(Canvas& c);
void DrawHelp(Canvas& c);

// Kernel objects and the properties window's pages (icons_objects.cpp).
void DrawWindow(Canvas& c);
void DrawThread(Canvas& c);
void DrawModule(Canvas& c);
void DrawRegistryKey(Canvas& c);
void DrawKernelObject(Canvas& c);
void DrawProcess(Canvas& c);
void DrawObjectDirectory(Canvas& c);
void DrawEvent(Canvas& c);
void DrawToken(Canvas& c);
void DrawSection(Canvas& c);
void DrawPort(Canvas& c);
void DrawGroup(Canvas& c);
void DrawPrivilegeEnabled(Canvas& c);
void DrawPrivilegeDisabled(Canvas& c);
void DrawUnknownProcess(Canvas& c);

// Actions on processes, threads and windows (icons_actions.cpp).
void DrawRun(Canvas& c);
void DrawKeepOnTop(Canvas& c);
void DrawPageOut(Canvas& c);
void DrawSuspendProcess(Canvas& c);
void DrawResumeProcess(Canvas& c);
void DrawCloseWindow(Canvas& c);
void DrawBringToFront(Canvas& c);
void DrawOpenFolder(Canvas& c);
void DrawTerminateProcess(Canvas& c);
void DrawRestartProcess(Canvas& c);
void DrawProperties(Canvas& c);
void DrawProcessWindows(Canvas& c);
void DrawPriority(Canvas& c);
void DrawSuspendThread(Canvas& c);
void DrawTerminateThread(Canvas& c);

}  // namespace icongen
