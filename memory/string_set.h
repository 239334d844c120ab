// StringSet: a growable array of owned wide strings behind marker words, as the Strings page keeps the
// printable strings of an image file.
#pragma once
#include <cstdint>

namespace lmvx {

struct StringSet {
    uint32_t magic;     // kStringSetAlive while the set lives; every operation treats another value as empty
    uint32_t kind;      // kStringSetKind
    uint32_t creator;   // the creator's code address (low 32 bits), for diagnosis only
    uint32_t size;      // 32, the size of this header
    int32_t count;
    uint32_t capacity;  // grows by 1024 slots
    wchar_t** items;
};

constexpr uint32_t kStringSetAlive = 0x54536574;
constexpr uint32_t kStringSetKind = 0x54534C52;
constexpr uint32_t kStringSetDestroyed = 0x006C6564;

// A new, empty set; null when memory runs out. creator: the caller's code address, kept for diagnosis.
StringSet* StringSetCreate(uintptr_t creator = 0);
// Appends a copy of text; 0 when memory runs out (or the set is not alive).
int StringSetAdd(StringSet* set, const wchar_t* text);
int StringSetCount(const StringSet* set);
const wchar_t* StringSetItem(const StringSet* set, int index);
// Frees every string and the array and marks the set destroyed; the header itself stays (the caller frees
// it with StringSetFree), so a second destroy only rewrites the marker.
void StringSetDestroy(StringSet* set);
void StringSetFree(StringSet* set);

// Reads the file at path and appends its printable strings; non-zero on success. A file of 0 bytes
// succeeds with no strings; a read of 0 bytes fails with ERROR_FILE_CORRUPT as the last error.
int LoadImageStrings(StringSet* set, const wchar_t* path);

}  // namespace lmvx
