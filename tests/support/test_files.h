// Files the tests and their child processes write, inside the test prefix.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

namespace lmvx_test {

// The prefix's temporary folder, with a trailing separator.
inline std::wstring TestTempFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    return folder;
}

// The file's UTF-16 text; empty while it does not exist or another process still holds it open for writing.
inline std::wstring ReadWholeFile(const std::wstring& path) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::vector<wchar_t> buffer(4096);
    DWORD read = 0;
    ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size() * sizeof(wchar_t)), &read, nullptr);
    CloseHandle(file);
    return std::wstring(buffer.data(), read / sizeof(wchar_t));
}

}  // namespace lmvx_test
