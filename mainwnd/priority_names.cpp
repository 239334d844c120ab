#include "mainwnd/priority_names.h"

#include "finch.h"

namespace lmvx {

unsigned PriorityClassOfCommand(unsigned commandId) {
    for (const PriorityEntry& entry : kPriorityEntries) {
        if (entry.commandId == commandId) return entry.priorityClass;
    }
    return 0;
}

unsigned PriorityClassNameId(unsigned priorityClass) {
    for (const PriorityEntry& entry : kPriorityEntries) {
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
