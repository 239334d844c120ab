// _IMAGEINFO: version data of one file, for the program's own pages.
#include "kestrel.h"

#include "version_info.h"

#include <algorithm>
#include <cwchar>

namespace kestrel {

namespace detail {
struct ImageInfoData {
    VersionInfo version;
    std::wstring displayName;
    SYSTEMTIME timeStamp{};
};
}  // namespace detail

namespace {

wchar_t* CopyInto(const std::wstring& text, wchar_t* buffer, unsigned length) {
    if (!buffer || length == 0) return buffer;
    const size_t count = std::min<size_t>(text.size(), length - 1);
    std::wmemcpy(buffer, text.data(), count);
    buffer[count] = L'\0';
    return buffer;
}

std::wstring FileNameOf(const std::wstring& path) {
    const size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

const std::wstring& NoText() {
    static const std::wstring empty;
    return empty;
}

}  // namespace

_IMAGEINFO::~_IMAGEINFO() { delete data_; }

int _IMAGEINFO::LoadVersionInfo(const wchar_t* path) {
    try {
        if (!data_) data_ = new detail::ImageInfoData;
        *data_ = detail::ImageInfoData{};
        if (!path || !*path) return 0;
        const bool loaded = detail::ReadVersionInfo(path, data_->version);
        data_->displayName = data_->version.description.empty() ? FileNameOf(path) : data_->version.description;
        DWORD seconds = 0;
        if (detail::ReadLinkTimeStamp(path, seconds)) data_->timeStamp = detail::SystemTimeFromUnixSeconds(seconds);
        return loaded ? 1 : 0;
    } catch (...) {   // nothing may cross the library's boundary
        return 0;
    }
}

const wchar_t* _IMAGEINFO::GetDisplayName() const { return data_ ? data_->displayName.c_str() : L""; }
const wchar_t* _IMAGEINFO::GetCompanyName() const { return data_ ? data_->version.companyName.c_str() : L""; }
const wchar_t* _IMAGEINFO::GetProductName() const { return data_ ? data_->version.productName.c_str() : L""; }

wchar_t* _IMAGEINFO::GetProductName(wchar_t* buffer, unsigned length) const {
    return CopyInto(data_ ? data_->version.productName : NoText(), buffer, length);
}
wchar_t* _IMAGEINFO::GetFileVersion(wchar_t* buffer, unsigned length) const {
    return CopyInto(data_ ? data_->version.fileVersion : NoText(), buffer, length);
}
wchar_t* _IMAGEINFO::GetProductVersion(wchar_t* buffer, unsigned length) const {
    return CopyInto(data_ ? data_->version.productVersion : NoText(), buffer, length);
}
wchar_t* _IMAGEINFO::GetCopyright(wchar_t* buffer, unsigned length) const {
    return CopyInto(data_ ? data_->version.copyright : NoText(), buffer, length);
}

unsigned _IMAGEINFO::GetVersionHigh() const { return data_ ? data_->version.fileVersionHigh : 0; }
unsigned _IMAGEINFO::GetVersionLow() const { return data_ ? data_->version.fileVersionLow : 0; }
SYSTEMTIME _IMAGEINFO::GetTimeStamp() const { return data_ ? data_->timeStamp : SYSTEMTIME{}; }

}  // namespace kestrel
