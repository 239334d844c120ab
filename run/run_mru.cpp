#include "run/run_mru.h"

#include <cwchar>

namespace lmvx {

std::optional<std::wstring> RunMruListEntry(const wchar_t* valueName, DWORD valueType, const wchar_t* data) {
    if (valueType != REG_SZ || !valueName || std::wcslen(valueName) != 1 || !data) return std::nullopt;
    std::wstring entry = data;
    if (entry.size() >= 2 && entry[entry.size() - 2] == L'\\') entry.resize(entry.size() - 2);
    return entry;
}

std::vector<std::wstring> ReadRunMruEntries(HKEY runMru) {
    std::vector<std::wstring> entries;
    for (DWORD index = 0;; ++index) {
        wchar_t name[56] = {};
        DWORD nameLength = 56;
        wchar_t data[513] = {};   // 1024 bytes of data and a terminator that stays zero
        DWORD dataBytes = 1024;
        DWORD type = 0;
        if (RegEnumValueW(runMru, index, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(data),
                          &dataBytes) != ERROR_SUCCESS)
            break;
        if (auto entry = RunMruListEntry(name, type, data)) entries.push_back(std::move(*entry));
    }
    return entries;
}

}  // namespace lmvx
