// Priority classes by name and by command of the priority menu.
#pragma once

#include <windows.h>

#include "resource.h"

namespace lmvx {

struct PriorityEntry {
    unsigned commandId;
    unsigned priorityClass;
    unsigned nameId;
};

// The priority menu, highest first: command, the class it sets, and the name of that class.
// There is no command 201.
inline constexpr PriorityEntry kPriorityEntries[] = {
    {IDM_PRIORITY_REALTIME, REALTIME_PRIORITY_CLASS, IDS_PRIORITY_REALTIME},
    {IDM_PRIORITY_HIGH, HIGH_PRIORITY_CLASS, IDS_PRIORITY_HIGH},
    {IDM_PRIORITY_ABOVE_NORMAL, ABOVE_NORMAL_PRIORITY_CLASS, IDS_PRIORITY_ABOVE_NORMAL},
    {IDM_PRIORITY_NORMAL, NORMAL_PRIORITY_CLASS, IDS_PRIORITY_NORMAL},
    {IDM_PRIORITY_BELOW_NORMAL, BELOW_NORMAL_PRIORITY_CLASS, IDS_PRIORITY_BELOW_NORMAL},
    {IDM_PRIORITY_IDLE, IDLE_PRIORITY_CLASS, IDS_PRIORITY_IDLE},
};

// The priority class a command of the priority menu sets, 0 for any other command (also 207, "Paused").
unsigned PriorityClassOfCommand(unsigned commandId);
// The string id naming a priority class, 0 for a value that is not one of the six classes.
unsigned PriorityClassNameId(unsigned priorityClass);
// The localised name of a priority class; "" for any other value. Never null.
const wchar_t* PriorityClassName(unsigned priorityClass);

}  // namespace lmvx
