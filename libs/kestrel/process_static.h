// What is read once per process instance through a process handle: path, owner, command line.
#pragma once
#include "unique_resource.h"

#include <string>
#include <unordered_map>

namespace kestrel::detail {

// A handle for queries and memory reads, or for limited queries when that is all we may have; invalid
// when the process cannot be opened or the pid now belongs to a process created at another time.
UniqueHandle OpenProcessInstance(DWORD pid, ULONGLONG createTime);

// Reads exactly length bytes of another process's memory.
bool ReadRemote(HANDLE process, ULONG_PTR address, void* buffer, SIZE_T length);
// Where the process parameters (command line, environment) lie in the process; 0 when unreadable.
ULONG_PTR ProcessParametersAddress(HANDLE process);

std::wstring ReadImagePath(HANDLE process);
std::wstring ReadCommandLine(HANDLE process);

// Account names by SID: looking an account up can take long, and most processes share a few owners.
class AccountNames {
public:
    std::wstring OwnerOf(HANDLE process);   // "DOMAIN\user", or "" when the token cannot be read

private:
    std::unordered_map<std::wstring, std::wstring> namesBySid_;
};

}  // namespace kestrel::detail
