#include "memory/region_text.h"

namespace lmvx {
namespace {

// The system's values, written out so that this file builds without the system headers.
constexpr uint32_t kMemCommit = 0x1000, kMemReserve = 0x2000, kMemFree = 0x10000;
constexpr uint32_t kMemPrivate = 0x20000, kMemMapped = 0x40000, kMemImage = 0x1000000;

struct Named {
    uint32_t value;
    const wchar_t* name;
};

constexpr Named kProtections[] = {
    {0x01, L"PAGE_NOACCESS"},  {0x02, L"PAGE_READONLY"},         {0x04, L"PAGE_READWRITE"},
    {0x08, L"PAGE_WRITECOPY"}, {0x10, L"PAGE_EXECUTE"},          {0x20, L"PAGE_EXECUTE_READ"},
    {0x40, L"PAGE_EXECUTE_READWRITE"}, {0x80, L"PAGE_EXECUTE_WRITECOPY"},
};
constexpr Named kStates[] = {{kMemCommit, L"MEM_COMMIT"}, {kMemFree, L"MEM_FREE"}, {kMemReserve, L"MEM_RESERVE"}};
constexpr Named kTypes[] = {{kMemImage, L"MEM_IMAGE"}, {kMemMapped, L"MEM_MAPPED"}, {kMemPrivate, L"MEM_PRIVATE"}};

template <size_t N>
std::wstring NameOrHex(const Named (&names)[N], uint32_t value) {
    for (const Named& named : names) {
        if (named.value == value) return named.name;
    }
    return Hex32Text(value);
}

int HexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

}  // namespace

std::wstring Hex32Text(uint32_t value) {
    static const wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text = L"0x00000000";
    for (int i = 9; i >= 2; --i, value >>= 4) text[i] = digits[value & 0xF];
    return text;
}

std::wstring RegionStateText(uint32_t state) { return NameOrHex(kStates, state); }

std::wstring RegionTypeText(uint32_t state, uint32_t type, std::wstring_view undefined) {
    if (state == kMemFree) return std::wstring(undefined);
    return NameOrHex(kTypes, type);
}

std::wstring RegionProtectText(uint32_t state, uint32_t protect, std::wstring_view undefined) {
    if (state == kMemFree || protect == 0) return std::wstring(undefined);
    return NameOrHex(kProtections, protect);
}

uint64_t ParseHexAddress(std::wstring_view text) {
    size_t i = 0;
    while (i < text.size() && (text[i] == L' ' || text[i] == L'\t')) ++i;
    if (i + 1 < text.size() && text[i] == L'0' && (text[i + 1] == L'x' || text[i + 1] == L'X') &&
        i + 2 < text.size() && HexDigit(text[i + 2]) >= 0) {
        i += 2;
    }
    uint64_t value = 0;
    for (; i < text.size() && HexDigit(text[i]) >= 0; ++i) value = (value << 4) | static_cast<uint64_t>(HexDigit(text[i]));
    return value;
}

}  // namespace lmvx

namespace lmvx {

std::wstring DescribeAddress(uint64_t address, bool inModule, std::wstring_view name, uint32_t state, uint32_t type) {
    const std::wstring text(name);
    if (inModule) {
        wchar_t hex[19];
        static const wchar_t digits[] = L"0123456789ABCDEF";
        hex[0] = L'0';
        hex[1] = L'x';
        for (int i = 17; i >= 2; --i, address >>= 4) hex[i] = digits[address & 0xF];
        hex[18] = L'\0';
        return std::wstring(hex) + L" (" + text + L")";
    }
    if (state == kMemFree) return text + L" (MEM_FREE)";
    switch (type) {
    case kMemImage: return text + L" (MEM_IMAGE)";
    case kMemMapped: return text + L" (MEM_MAPPED)";
    case kMemPrivate: return text + L" (MEM_PRIVATE)";
    default: return text;
    }
}

uint64_t NextPageAddress(uint64_t stepped, uint32_t state, uint64_t regionBase, uint64_t regionSize) {
    return state == kMemCommit ? stepped : regionBase + regionSize;
}

uint64_t PreviousPageAddress(uint64_t stepped, uint32_t state, uint64_t regionBase) {
    return state == kMemCommit ? stepped : regionBase - 4096;
}

}  // namespace lmvx
