// The option store: one registry value per option under the application's Settings key.
// Every call opens and closes the key itself, so reads and writes from several threads need no lock.
#include "wren.h"

#include <cstring>
#include <vector>

#include "stored_value.h"
#include "unique_resource.h"

namespace wren {

static_assert(kStoredTypeBinary == REG_BINARY && kStoredTypeDword == REG_DWORD);

REGOPTIONS regOptions;

namespace {

UniqueRegistryKey OpenSettingsKey(REGSAM access, bool create) {
    UniqueRegistryKey key;
    const wchar_t* path = GetSettingsKeyPath();
    if (!*path) return key;   // before PostInit nothing is read or written anywhere
    LSTATUS status = create ? RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                              access, nullptr, key.Put(), nullptr)
                            : RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, access, key.Put());
    if (status != ERROR_SUCCESS) key.Release();   // the out-parameter is undefined on failure
    return key;
}

unsigned long ReadDword(const wchar_t* name, unsigned long defaultValue) {
    UniqueRegistryKey key = OpenSettingsKey(KEY_QUERY_VALUE, false);
    if (!key) return defaultValue;
    DWORD type = 0;
    DWORD value = 0;
    DWORD size = sizeof(value);
    if (RegQueryValueExW(key.Get(), name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size) != ERROR_SUCCESS)
        return defaultValue;
    return DwordOrDefault(type, size, value, defaultValue);
}

int WriteValue(const wchar_t* name, DWORD type, const void* data, DWORD size) {
    UniqueRegistryKey key = OpenSettingsKey(KEY_SET_VALUE, true);
    if (!key) return 0;
    return RegSetValueExW(key.Get(), name, 0, type, static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

}  // namespace

int REGOPTIONS::GetOptionBOOL(const wchar_t* name, int defaultValue) {
    return static_cast<int>(ReadDword(name, static_cast<unsigned long>(defaultValue)));
}

unsigned REGOPTIONS::GetOptionDWORD(const wchar_t* name, unsigned defaultValue) {
    return static_cast<unsigned>(ReadDword(name, defaultValue));
}

int REGOPTIONS::GetOptionBINARY(const wchar_t* name, void* buffer, unsigned bufferSize, unsigned* bytesRead) {
    if (bytesRead) *bytesRead = 0;
    if (!buffer) return 0;
    UniqueRegistryKey key = OpenSettingsKey(KEY_QUERY_VALUE, false);
    if (!key) return 0;
    DWORD type = 0;
    DWORD storedSize = 0;
    if (RegQueryValueExW(key.Get(), name, nullptr, &type, nullptr, &storedSize) != ERROR_SUCCESS) return 0;
    if (!BinaryBlockFits(type, storedSize, bufferSize)) return 0;
    // Read into a block of our own first: the caller's buffer stays untouched unless the whole value fits,
    // even when the value grows between the two queries.
    std::vector<BYTE> block(storedSize);
    DWORD size = storedSize;
    if (RegQueryValueExW(key.Get(), name, nullptr, &type, block.data(), &size) != ERROR_SUCCESS) return 0;
    if (!BinaryBlockFits(type, size, bufferSize)) return 0;
    if (size) std::memcpy(buffer, block.data(), size);
    if (bytesRead) *bytesRead = size;
    return 1;
}

int REGOPTIONS::SetOptionBOOL(const wchar_t* name, int value) {
    const DWORD stored = static_cast<DWORD>(value);
    return WriteValue(name, REG_DWORD, &stored, sizeof(stored));
}

int REGOPTIONS::SetOptionDWORD(const wchar_t* name, unsigned value) {
    const DWORD stored = value;
    return WriteValue(name, REG_DWORD, &stored, sizeof(stored));
}

int REGOPTIONS::SetOptionBINARY(const wchar_t* name, const void* data, unsigned size) {
    if (!data && size) return 0;
    return WriteValue(name, REG_BINARY, data, size);
}

}  // namespace wren
