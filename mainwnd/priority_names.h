// Priority classes by name and by command of the priority menu.
#pragma once

namespace lmvx {

// The priority class a command of the priority menu sets, 0 for any other command (also 207, "Paused").
unsigned PriorityClassOfCommand(unsigned commandId);
// The string id naming a priority class, 0 for a value that is not one of the six classes.
unsigned PriorityClassNameId(unsigned priorityClass);
// The localised name of a priority class; "" for any other value. Never null.
const wchar_t* PriorityClassName(unsigned priorityClass);

}  // namespace lmvx
