#include "stored_value.h"

namespace wren {

unsigned long DwordOrDefault(unsigned long type, unsigned long size, unsigned long storedValue,
                             unsigned long defaultValue) {
    return type == kStoredTypeDword && size == 4 ? storedValue : defaultValue;
}

bool BinaryBlockFits(unsigned long type, unsigned long storedSize, unsigned long bufferSize) {
    return type == kStoredTypeBinary && storedSize <= bufferSize;
}

std::wstring SettingsKeyPath(std::wstring_view applicationName) {
    if (applicationName.empty()) return {};
    std::wstring path = L"Software\\Orvane Software\\";
    path += applicationName;
    path += L"\\Settings";
    return path;
}

}  // namespace wren
