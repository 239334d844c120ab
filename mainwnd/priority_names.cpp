#include "mainwnd/priority_names.h"

#include <windows.h>

#include "command_ids.h"
#include "finch.h"
#include "string_ids.h"

namespace lmvx {

namespace {

struct PriorityEntry {
    unsigned commandId;
    unsigned priorityClass;
    unsigned nameId;
};

// The priority menu: command, the class it sets, and the name of that class. There is no command 201.
constexpr PriorityEntry kPriorities[] = {
    {IDM_PRIORITY_REALTIME, REALTIME_PRIORITY_CLASS, IDS_PRIORITY_REALTIME},
    {IDM_PRIORITY_HIGH, HIGH_PRIORITY_CLASS, IDS_PRIORITY_HIGH},
    {IDM_PRIORITY_ABOVE_NORMAL, ABOVE_NORMAL_PRIORITY_CLASS, IDS_PRIORITY_ABOVE_NORMAL},
    {IDM_PRIORITY_NORMAL, NORMAL_PRIORITY_CLASS, IDS_PRIORITY_NORMAL},
    {IDM_PRIORITY_BELOW_NORMAL, BELOW_NORMAL_PRIORITY_CLASS, IDS_PRIORITY_BELOW_NORMAL},
    {IDM_PRIORITY_IDLE, IDLE_PRIORITY_CLASS, IDS_PRIORITY_IDLE},
};

}  // namespace

unsigned PriorityClassOfCommand(unsigned commandId) {
    for (const PriorityEntry& entry : kPriorities) {
        if (entry.commandId == commandId) return entry.priorityClass;
    }
    return 0;
}

unsigned PriorityClassNameId(unsigned priorityClass) {
    for (const PriorityEntry& entry : kPriorities) {
        if (entry.priorityClass == priorityClass) return entry.nameId;
    }
    return 0;
}

const wchar_t* PriorityClassName(unsigned priorityClass) {
    // Any other value has no name, not even "Unknown".
    const unsigned nameId = PriorityClassNameId(priorityClass);
    return nameId != 0 ? UIL_LangModule.GetLangString(nameId) : L"";
}

}  // namespace lmvx
