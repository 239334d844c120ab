#include "memory/string_set.h"

#include <windows.h>

#include <cstdlib>
#include <cwchar>
#include <memory>
#include <new>

#include "common/unique_resource.h"
#include "memory/image_string_scan.h"

namespace lmvx {
namespace {

constexpr uint32_t kGrowth = 1024;

bool IsAlive(const StringSet* set) { return set && set->magic == kStringSetAlive; }

// The slots the array really has for a capacity: the capacity grows by 1024 as the set's contract says,
// but the memory behind it doubles, so that a set of a million strings is not copied a thousand times.
size_t AllocatedSlots(size_t capacity) {
    size_t slots = kGrowth;
    while (slots < capacity) slots *= 2;
    return slots;
}

bool AddUnits(StringSet* set, const char16_t* text, size_t length) {
    if (!IsAlive(set)) return false;
    if (static_cast<uint32_t>(set->count) == set->capacity) {
        const size_t capacity = static_cast<size_t>(set->capacity) + kGrowth;
        if (!set->items || AllocatedSlots(capacity) > AllocatedSlots(set->capacity)) {
            auto* items = static_cast<wchar_t**>(std::realloc(set->items, AllocatedSlots(capacity) * sizeof(wchar_t*)));
            if (!items) return false;
            set->items = items;
        }
        set->capacity = static_cast<uint32_t>(capacity);
    }
    auto* copy = static_cast<wchar_t*>(std::malloc((length + 1) * sizeof(wchar_t)));
    if (!copy) return false;
    for (size_t k = 0; k < length; ++k) copy[k] = static_cast<wchar_t>(text[k]);
    copy[length] = L'\0';
    set->items[set->count++] = copy;
    return true;
}

}  // namespace

StringSet* StringSetCreate(uintptr_t creator) {
    auto* set = static_cast<StringSet*>(std::calloc(1, sizeof(StringSet)));
    if (!set) return nullptr;
    set->magic = kStringSetAlive;
    set->kind = kStringSetKind;
    set->creator = static_cast<uint32_t>(creator);
    set->size = 32;
    return set;
}

int StringSetAdd(StringSet* set, const wchar_t* text) {
    if (!text) return 0;
    const size_t length = std::wcslen(text);
    std::unique_ptr<char16_t[]> units(new (std::nothrow) char16_t[length + 1]);
    if (!units) return 0;
    for (size_t k = 0; k < length; ++k) units[k] = static_cast<char16_t>(text[k]);
    return AddUnits(set, units.get(), length) ? 1 : 0;
}

int StringSetCount(const StringSet* set) { return IsAlive(set) ? set->count : 0; }

const wchar_t* StringSetItem(const StringSet* set, int index) {
    if (!IsAlive(set) || index < 0 || index >= set->count) return nullptr;
    return set->items[index];
}

void StringSetDestroy(StringSet* set) {
    if (!set) return;
    if (IsAlive(set)) {
        for (int32_t i = 0; i < set->count; ++i) std::free(set->items[i]);
        std::free(set->items);
        set->items = nullptr;
        set->count = 0;
        set->capacity = 0;
    }
    set->magic = kStringSetDestroyed;
}

void StringSetFree(StringSet* set) {
    StringSetDestroy(set);
    std::free(set);
}

int LoadImageStrings(StringSet* set, const wchar_t* path) {
    UniqueFileHandle file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return 0;
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.Get(), &size)) return 0;
    if (size.QuadPart == 0) return 1;
    // One ReadFile reads at most 4 GB - 1; a larger image is beyond what the page loads.
    if (size.QuadPart > 0xFFFFFFFELL) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
    const DWORD length = static_cast<DWORD>(size.QuadPart);
    std::unique_ptr<uint8_t[]> bytes(new (std::nothrow) uint8_t[length]());
    if (!bytes) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
    DWORD read = 0;
    if (!ReadFile(file.Get(), bytes.get(), length, &read, nullptr)) return 0;
    if (read == 0) {
        SetLastError(ERROR_FILE_CORRUPT);
        return 0;
    }
    file.Reset();
    const ImageStringSink sink{[](void* context, const char16_t* text, size_t textLength) {
                                   return AddUnits(static_cast<StringSet*>(context), text, textLength);
                               },
                               set};
    return ExtractImageStrings(bytes.get(), read, sink) ? 1 : 0;
}

}  // namespace lmvx
