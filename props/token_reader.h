// What the Token page shows of a process's security token, read once through the system's security calls.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace lmvx {

struct TokenGroupRow {
    std::wstring name;   // "DOMAIN\name", the logon-SID text, the SID, or "Unknown Group"
    DWORD attributes = 0;
};

struct TokenPrivilegeRow {
    std::wstring name;          // "SeDebugPrivilege", or "Unknown Privilege (high low)"
    std::wstring displayName;   // empty when the system has none
    DWORD attributes = 0;
};

struct TokenReport {
    bool opened = false;   // false: the token could not be opened for query, and everything below is empty
    std::wstring user;     // "DOMAIN\name", or "Unknown"
    std::wstring sid;      // empty when the user could not be read
    std::wstring session;  // decimal, empty when unknown
    std::vector<TokenGroupRow> groups;
    std::vector<TokenPrivilegeRow> privileges;
};

TokenReport ReadProcessToken(unsigned pid);

}  // namespace lmvx
