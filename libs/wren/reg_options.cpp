// The option store: one registry value per option under the application's Settings key.
// Writes open and close the key themselves; reads share one handle to it (below).
#include "wren.h"

#include <cstring>
#include <mutex>
#include <string>
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

// The handle that reads use, kept open: the refresh cycle reads options every time it runs, and each
// opening of the key is a round trip to the registry. It is opened again when the settings path changes,
// and when the key was deleted under it (a write then creates a new one). A key that does not exist is
// looked for again at the next read. Reads from several threads take turns.
class SettingsReadKey {
public:
    // Runs query(key) and returns its status; ERROR_FILE_NOT_FOUND without a key.
    template <typename Query>
    LSTATUS Read(Query query) {
        std::lock_guard guard(lock_);
        const wchar_t* path = GetSettingsKeyPath();
        if (path_ != path) {
            key_.Reset();
            path_ = path;
        }
        for (int attempt = 0; attempt < 2; ++attempt) {
            if (!key_) key_ = OpenSettingsKey(KEY_QUERY_VALUE, false);
            if (!key_) return ERROR_FILE_NOT_FOUND;
            const LSTATUS status = query(key_.Get());
            if (status != ERROR_KEY_DELETED) return status;
            key_.Reset();
        }
        return ERROR_KEY_DELETED;
    }

private:
    std::mutex lock_;
    std::wstring path_;
    UniqueRegistryKey key_;
};

SettingsReadKey& ReadKey() {
    static SettingsReadKey key;
    return key;
}

unsigned long ReadDword(const wchar_t* name, unsigned long defaultValue) {
    DWORD type = 0;
    DWORD value = 0;
    DWORD size = sizeof(value);
    const LSTATUS status = ReadKey().Read([&](HKEY key) {
        size = sizeof(value);
        return RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    });
    if (status != ERROR_SUCCESS) return defaultValue;
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
    // Read into a block of our own first: the caller's buffer stays untouched unless the whole value fits,
    // even when the value grows between the two queries.
    std::vector<BYTE> block;
    DWORD type = 0;
    DWORD size = 0;
    const LSTATUS status = ReadKey().Read([&](HKEY key) {
        DWORD storedSize = 0;
        LSTATUS query = RegQueryValueExW(key, name, nullptr, &type, nullptr, &storedSize);
        if (query != ERROR_SUCCESS) return query;
        if (!BinaryBlockFits(type, storedSize, bufferSize)) return static_cast<LSTATUS>(ERROR_MORE_DATA);
        block.assign(storedSize, 0);
        size = storedSize;
        return RegQueryValueExW(key, name, nullptr, &type, block.data(), &size);
    });
    if (status != ERROR_SUCCESS || !BinaryBlockFits(type, size, bufferSize)) return 0;
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
