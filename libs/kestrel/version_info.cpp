#include "version_info.h"

#include "unique_resource.h"

#include <cwchar>
#include <vector>

namespace kestrel::detail {

namespace {

std::wstring QueryString(const std::vector<BYTE>& block, const std::wstring& language, const wchar_t* name) {
    const std::wstring query = L"\\StringFileInfo\\" + language + L"\\" + name;
    void* value = nullptr;
    UINT length = 0;
    // VerQueryValueW takes a non-const block; it does not change it.
    if (!VerQueryValueW(const_cast<BYTE*>(block.data()), query.c_str(), &value, &length) || !value || length == 0)
        return {};
    std::wstring text(static_cast<const wchar_t*>(value), length);
    text.resize(wcsnlen(text.c_str(), text.size()));   // the length counts the terminator, sometimes more
    return text;
}

// The language blocks to try: those the file lists, then the usual English ones.
std::vector<std::wstring> LanguageBlocks(const std::vector<BYTE>& block) {
    std::vector<std::wstring> names;
    struct Translation { WORD language; WORD codePage; };
    void* value = nullptr;
    UINT length = 0;
    if (VerQueryValueW(const_cast<BYTE*>(block.data()), L"\\VarFileInfo\\Translation", &value, &length) && value) {
        const auto* translations = static_cast<const Translation*>(value);
        for (UINT i = 0; i < length / sizeof(Translation); ++i)
            names.push_back(TranslationBlockName(translations[i].language, translations[i].codePage));
    }
    names.push_back(L"040904b0");
    names.push_back(L"040904e4");
    names.push_back(L"04090000");
    return names;
}

}  // namespace

bool ReadVersionInfo(const std::wstring& path, VersionInfo& info) {
    info = VersionInfo{};
    if (path.empty()) return false;
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
    if (size == 0) return false;
    std::vector<BYTE> block(size);
    if (!GetFileVersionInfoW(path.c_str(), 0, size, block.data())) return false;

    for (const std::wstring& language : LanguageBlocks(block)) {
        info.description = QueryString(block, language, L"FileDescription");
        info.companyName = QueryString(block, language, L"CompanyName");
        info.productName = QueryString(block, language, L"ProductName");
        info.fileVersion = QueryString(block, language, L"FileVersion");
        info.productVersion = QueryString(block, language, L"ProductVersion");
        info.copyright = QueryString(block, language, L"LegalCopyright");
        if (!info.description.empty() || !info.companyName.empty() || !info.productName.empty()) break;
    }

    void* value = nullptr;
    UINT length = 0;
    if (VerQueryValueW(block.data(), L"\\", &value, &length) && value && length >= sizeof(VS_FIXEDFILEINFO)) {
        const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
        info.fileVersionHigh = fixed->dwFileVersionMS;
        info.fileVersionLow = fixed->dwFileVersionLS;
        if (info.fileVersion.empty()) info.fileVersion = FormatFileVersion(fixed->dwFileVersionMS, fixed->dwFileVersionLS);
    }
    return true;
}

bool ReadLinkTimeStamp(const std::wstring& path, DWORD& secondsSince1970) {
    UniqueHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.Get() == INVALID_HANDLE_VALUE) {
        file.Release();   // INVALID_HANDLE_VALUE is not ours to close
        return false;
    }
    IMAGE_DOS_HEADER dosHeader{};
    DWORD read = 0;
    if (!ReadFile(file.Get(), &dosHeader, sizeof dosHeader, &read, nullptr) || read != sizeof dosHeader ||
        dosHeader.e_magic != IMAGE_DOS_SIGNATURE || dosHeader.e_lfanew <= 0)
        return false;
    if (SetFilePointer(file.Get(), dosHeader.e_lfanew, nullptr, FILE_BEGIN) == INVALID_SET_FILE_POINTER) return false;
    DWORD signature = 0;
    IMAGE_FILE_HEADER fileHeader{};
    if (!ReadFile(file.Get(), &signature, sizeof signature, &read, nullptr) || read != sizeof signature ||
        signature != IMAGE_NT_SIGNATURE)
        return false;
    if (!ReadFile(file.Get(), &fileHeader, sizeof fileHeader, &read, nullptr) || read != sizeof fileHeader) return false;
    secondsSince1970 = fileHeader.TimeDateStamp;
    return true;
}

}  // namespace kestrel::detail
