#include "memory/memory_string_scan.h"

#include "memory/byte_class.h"

namespace lmvx {
namespace {

constexpr ByteClass kStart(".\"'{}[]()=_+-/*\\:,<>%&", {0xC4, 0xE4, 0xD6, 0xF6, 0xDC, 0xFC, 0xDF});
// 0x10 (not the line feed) continues a string: intended.
constexpr ByteClass kContinue = kStart.With(" \t!#;@~", {0xA9, 0xBB, 0x10});

// A unit belongs to a class when its high byte is 0 and its low byte does (see ByteClass::HasUnit), so
// both attempts at a position begin with a start-class byte there; the scan skips every other byte at
// one table look-up each. The strings are widened only once they are long enough to be kept.
size_t CollectUnits(const uint8_t* bytes, size_t i, size_t n) {
    size_t length = 1;
    // A whole unit must lie in the chunk; the collection ends where none is left.
    for (i += 2; length < kSearchMaxLength && i + 1 < n && bytes[i + 1] == 0 && kContinue.Has(bytes[i]); i += 2) {
        ++length;
    }
    return length;
}

size_t CollectBytes(const uint8_t* bytes, size_t i, size_t n) {
    const size_t end = n - i < kSearchMaxLength ? n : i + kSearchMaxLength;
    size_t j = i + 1;
    while (j < end && kContinue.Has(bytes[j])) ++j;
    return j - i;
}

}  // namespace

bool IsSearchStartChar(uint8_t byte) { return kStart.Has(byte); }
bool IsSearchContinueChar(uint8_t byte) { return kContinue.Has(byte); }

void ScanMemoryChunk(const uint8_t* bytes, size_t n, const MemoryStringSink& sink) {
    char16_t text[kSearchMaxLength];
    size_t i = 0;
    for (;;) {
        while (i < n && !kStart.Has(bytes[i])) ++i;
        if (i >= n) return;
        const size_t start = i;
        const bool utf16 = i + 1 < n && bytes[i + 1] == 0;
        const size_t length = utf16 ? CollectUnits(bytes, i, n) : CollectBytes(bytes, i, n);
        const size_t width = utf16 ? 2 : 1;
        // A string too short to keep is dropped; the scan goes on after it either way.
        i = start + length * width;
        if (length < kSearchMinLength) continue;
        for (size_t k = 0; k < length; ++k) text[k] = bytes[start + k * width];
        sink.found(sink.context, start, text, length, utf16);
    }
}

}  // namespace lmvx
