#include "props/token_reader.h"

#include <sddl.h>

#include "common/unique_resource.h"
#include "props/page_common.h"
#include "resource.h"

namespace lmvx {
namespace {

// A token information class read whole: the size first, then the data. Empty on any failure.
std::vector<BYTE> ReadTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS kind) {
    DWORD length = 0;
    GetTokenInformation(token, kind, nullptr, 0, &length);
    if (length == 0) return {};
    std::vector<BYTE> data(length);
    if (!GetTokenInformation(token, kind, data.data(), length, &length)) return {};
    return data;
}

std::wstring SidText(PSID sid) {
    wchar_t* raw = nullptr;
    if (!ConvertSidToStringSidW(sid, &raw)) return {};
    UniqueLocalMemory owned(raw);
    return raw;
}

// "domain\name" (or the name alone when withoutEmptyDomain and the domain is empty); empty when unknown.
std::wstring AccountName(PSID sid, DWORD capacity, bool withoutEmptyDomain) {
    std::wstring name(capacity, L'\0');
    std::wstring domain(capacity, L'\0');
    DWORD nameLength = capacity;
    DWORD domainLength = capacity;
    SID_NAME_USE use{};
    if (!LookupAccountSidW(nullptr, sid, name.data(), &nameLength, domain.data(), &domainLength, &use)) return {};
    name.resize(nameLength);
    domain.resize(domainLength);
    if (withoutEmptyDomain && domain.empty()) return name;
    return domain + L"\\" + name;
}

void ReadUser(HANDLE token, TokenReport& report) {
    const std::vector<BYTE> data = ReadTokenInformation(token, TokenUser);
    if (data.empty()) {
        report.user = LangText(IDS_UNKNOWN);
        return;
    }
    const PSID sid = reinterpret_cast<const TOKEN_USER*>(data.data())->User.Sid;
    report.user = AccountName(sid, 256, false);
    if (report.user.empty()) report.user = LangText(IDS_UNKNOWN);
    report.sid = SidText(sid);
}

std::wstring GroupName(const SID_AND_ATTRIBUTES& group) {
    std::wstring name = AccountName(group.Sid, 512, true);
    if (!name.empty()) return name;
    const std::wstring sid = SidText(group.Sid);
    if (sid.empty()) return LangText(IDS_UNKNOWN_GROUP);
    if (group.Attributes & SE_GROUP_LOGON_ID) return FormatText(LangText(IDS_LOGON_ID).c_str(), sid.c_str());
    return sid;
}

void ReadGroups(HANDLE token, TokenReport& report) {
    const std::vector<BYTE> data = ReadTokenInformation(token, TokenGroups);
    if (data.empty()) return;
    const auto* groups = reinterpret_cast<const TOKEN_GROUPS*>(data.data());
    for (DWORD i = 0; i < groups->GroupCount; ++i)
        report.groups.push_back({GroupName(groups->Groups[i]), groups->Groups[i].Attributes});
}

void ReadPrivileges(HANDLE token, TokenReport& report) {
    const std::vector<BYTE> data = ReadTokenInformation(token, TokenPrivileges);
    if (data.empty()) return;
    const auto* privileges = reinterpret_cast<const TOKEN_PRIVILEGES*>(data.data());
    for (DWORD i = 0; i < privileges->PrivilegeCount; ++i) {
        LUID luid = privileges->Privileges[i].Luid;
        TokenPrivilegeRow row;
        row.attributes = privileges->Privileges[i].Attributes;
        wchar_t name[512];
        DWORD length = 512;
        row.name = LookupPrivilegeNameW(nullptr, &luid, name, &length)
                       ? std::wstring(name, length)
                       : FormatText(LangText(IDS_UNKNOWN_PRIVILEGE).c_str(), luid.HighPart, luid.LowPart);
        wchar_t display[512];
        DWORD displayLength = 512;
        DWORD language = 0;
        if (LookupPrivilegeDisplayNameW(nullptr, row.name.c_str(), display, &displayLength, &language))
            row.displayName.assign(display, displayLength);
        report.privileges.push_back(std::move(row));
    }
}

}  // namespace

TokenReport ReadProcessToken(unsigned pid) {
    TokenReport report;
    UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, pid));
    UniqueHandle token;
    if (!process || !OpenProcessToken(process.Get(), TOKEN_QUERY, token.Put())) return report;
    report.opened = true;
    DWORD session = 0;
    DWORD length = 0;
    if (GetTokenInformation(token.Get(), TokenSessionId, &session, sizeof session, &length))
        report.session = std::to_wstring(session);
    ReadUser(token.Get(), report);
    ReadGroups(token.Get(), report);
    ReadPrivileges(token.Get(), report);
    return report;
}

}  // namespace lmvx
