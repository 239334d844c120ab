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
    unsigned long grantedAccess = 0;
    bool dosFile = false;
    // Asked of the system when first read (see LoadCounts), not at the query: no list shows them.
    bool countsKnown = false;
    unsigned long referenceCount = 0;
    unsigned long pagedPoolQuota = 0;
    unsigned long nonPagedPoolQuota = 0;
};

// Fills the reference count and the pool quotas once, from the handle as it is now in its process (all 0
// when the process or the handle has gone). Each costs a duplication, a query and a close, so a list of
// thousands of handles asks only for those that are looked at.
void LoadCounts(HandleObjectData& data);

}  // namespace kestrel::detail
