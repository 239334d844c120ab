#include "process_static.h"

#include "nt_api.h"

#include <sddl.h>
#include <vector>

namespace kestrel::detail {

namespace {

ULONGLONG FileTimeValue(const FILETIME& time) {
    return (static_cast<ULONGLONG>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

// Older systems lack ProcessCommandLineInformation: read the string from the process parameters.
std::wstring ReadCommandLineFromPeb(HANDLE process) {
    const ULONG_PTR parameters = ProcessParametersAddress(process);
    UNICODE_STRING commandLine{};
    if (!parameters ||
        !ReadRemote(process, parameters + nt::ParametersCommandLineOffset, &commandLine, sizeof commandLine) ||
        !commandLine.Buffer || commandLine.Length == 0)
        return {};
    std::wstring text(commandLine.Length / sizeof(wchar_t), L'\0');
    if (!ReadRemote(process, reinterpret_cast<ULONG_PTR>(commandLine.Buffer), text.data(), commandLine.Length)) return {};
    return text;
}

}  // namespace

bool ReadRemote(HANDLE process, ULONG_PTR address, void* buffer, SIZE_T length) {
    SIZE_T read = 0;
    return ReadProcessMemory(process, reinterpret_cast<const void*>(address), buffer, length, &read) && read == length;
}

ULONG_PTR ProcessParametersAddress(HANDLE process) {
    nt::ProcessBasicInfo basic{};
    const auto query = nt::QueryInformationProcess();
    if (!query || query(process, nt::ProcessBasicInformationClass, &basic, sizeof basic, nullptr) != nt::StatusSuccess ||
        !basic.PebBaseAddress)
        return 0;
    ULONG_PTR parameters = 0;
    const auto peb = reinterpret_cast<ULONG_PTR>(basic.PebBaseAddress);
    if (!ReadRemote(process, peb + nt::PebProcessParametersOffset, &parameters, sizeof parameters)) return 0;
    return parameters;
}

UniqueHandle OpenProcessInstance(DWORD pid, ULONGLONG createTime) {
    UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, pid));
    if (!process) process.Reset(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid));
    if (!process) return process;
    FILETIME creation{}, exit{}, kernel{}, user{};
    // The pid may have been reused since the snapshot was taken: then this is not the process we saw.
    if (!GetProcessTimes(process.Get(), &creation, &exit, &kernel, &user) || FileTimeValue(creation) != createTime)
        process.Reset();
    return process;
}

std::wstring ReadImagePath(HANDLE process) {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (int attempt = 0; attempt < 4; ++attempt) {
        DWORD length = static_cast<DWORD>(buffer.size());
        if (QueryFullProcessImageNameW(process, 0, buffer.data(), &length)) return std::wstring(buffer.data(), length);
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) break;
        buffer.resize(buffer.size() * 4);
    }
    return {};
}

std::wstring ReadCommandLine(HANDLE process) {
    const auto query = nt::QueryInformationProcess();
    if (query) {
        std::vector<BYTE> buffer(1024);
        ULONG needed = 0;
        NTSTATUS status = query(process, nt::ProcessCommandLineInformationClass, buffer.data(),
                                static_cast<ULONG>(buffer.size()), &needed);
        if ((status == nt::StatusInfoLengthMismatch || status == nt::StatusBufferTooSmall ||
             status == nt::StatusBufferOverflow) && needed > buffer.size()) {
            buffer.resize(needed);
            status = query(process, nt::ProcessCommandLineInformationClass, buffer.data(),
                           static_cast<ULONG>(buffer.size()), &needed);
        }
        if (status == nt::StatusSuccess) {
            const auto* text = reinterpret_cast<const UNICODE_STRING*>(buffer.data());
            if (text->Buffer && text->Length) return std::wstring(text->Buffer, text->Length / sizeof(wchar_t));
            return {};
        }
    }
    return ReadCommandLineFromPeb(process);
}

std::wstring AccountNames::OwnerOf(HANDLE process) {
    HANDLE rawToken = nullptr;
    if (!OpenProcessToken(process, TOKEN_QUERY, &rawToken)) return {};
    UniqueHandle token(rawToken);
    DWORD length = 0;
    GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &length);
    if (length == 0) return {};
    std::vector<BYTE> buffer(length);
    if (!GetTokenInformation(token.Get(), TokenUser, buffer.data(), length, &length)) return {};
    PSID sid = reinterpret_cast<const TOKEN_USER*>(buffer.data())->User.Sid;

    wchar_t* rawSidText = nullptr;
    if (!ConvertSidToStringSidW(sid, &rawSidText)) return {};
    UniqueLocalMemory sidText(rawSidText);
    std::wstring key(rawSidText);
    if (const auto found = namesBySid_.find(key); found != namesBySid_.end()) return found->second;

    wchar_t name[256];
    wchar_t domain[256];
    DWORD nameLength = ARRAYSIZE(name);
    DWORD domainLength = ARRAYSIZE(domain);
    SID_NAME_USE use{};
    std::wstring owner;
    if (LookupAccountSidW(nullptr, sid, name, &nameLength, domain, &domainLength, &use))
        owner = domainLength ? std::wstring(domain) + L"\\" + name : std::wstring(name);
    else
        owner = key;   // an account without a name is shown by its SID, as the system's tools do
    namesBySid_.emplace(std::move(key), owner);
    return owner;
}

}  // namespace kestrel::detail
