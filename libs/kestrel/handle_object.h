// What one _HANDLEOBJECT holds; made by the handle list, copied with the object.
#pragma once
#include <windows.h>

#include <string>

namespace kestrel::detail {

struct HandleObjectData {
    unsigned pid = 0;
    ULONG_PTR value = 0;
    unsigned long typeIndex = 0;   // the system's number for the type; 0 when it gives none
    std::wstring type;
    std::wstring name;
    std::wstring print;
    unsigned long referenceCount = 0;
    unsigned long grantedAccess = 0;
    unsigned long pagedPoolQuota = 0;
    unsigned long nonPagedPoolQuota = 0;
    bool dosFile = false;
};

}  // namespace kestrel::detail
