// The printable strings in a chunk of process memory, as the memory search lists them: UTF-16 strings
// tried at every byte offset, then byte strings, 5 to 128 characters. Pure: builds on any host.
#pragma once
#include <cstddef>
#include <cstdint>

namespace lmvx {

constexpr size_t kSearchMinLength = 5;
constexpr size_t kSearchMaxLength = 128;  // a longer run is cut into pieces of this length

struct MemoryStringSink {
    // offset: the string's first byte within the chunk; text: its characters (byte strings widened by the
    // Windows-1252 meaning of each byte, which for every byte the classes admit is its code point).
    void (*found)(void* context, size_t offset, const char16_t* text, size_t length, bool utf16);
    void* context;
};

bool IsSearchStartChar(uint8_t byte);
bool IsSearchContinueChar(uint8_t byte);

// Reports every kept string of the chunk in chunk order. Reads only bytes[0 .. n).
void ScanMemoryChunk(const uint8_t* bytes, size_t n, const MemoryStringSink& sink);

}  // namespace lmvx
