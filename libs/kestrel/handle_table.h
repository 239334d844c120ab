// Reads the handle table of one process: the process's own query where the system has it (Windows 8 and
// later), else the system-wide table filtered to the process.
#pragma once
#include <windows.h>

#include <vector>

namespace kestrel::detail {

struct RawHandle {
    ULONG_PTR value = 0;
    ULONG grantedAccess = 0;
    ULONG typeIndex = 0;   // 0 when the system gives none
};

// A reusable buffer, so that a refresh does not allocate the table's size again each time.
using QueryBuffer = std::vector<unsigned char>;

// process: a handle with PROCESS_QUERY_INFORMATION (for the process's own query; may be null).
bool ReadHandleTable(HANDLE process, unsigned pid, QueryBuffer& buffer, std::vector<RawHandle>& handles);

}  // namespace kestrel::detail
