#include "memory/memory_string_scan.h"

#include "memory/byte_class.h"

namespace lmvx {
namespace {

constexpr ByteClass kStart(".\"'{}[]()=_+-/*\\:,<>%&", {0xC4, 0xE4, 0xD6, 0xF6, 0xDC, 0xFC, 0xDF});
// 0x10 (not the line feed) continues a string: intended.
constexpr ByteClass kContinue = kStart.With(" \t!#;@~", {0xA9, 0xBB, 0x10});

}  // namespace

bool IsSearchStartChar(uint8_t byte) { return kStart.Has(byte); }
bool IsSearchContinueChar(uint8_t byte) { return kContinue.Has(byte); }

void ScanMemoryChunk(const uint8_t* bytes, size_t n, const MemoryStringSink& sink) {
    char16_t text[kSearchMaxLength];
    size_t i = 0;
    while (i < n) {
        const size_t start = i;
        size_t length = 0;
        if (i + 1 < n && kStart.HasUnit(UnitAt(bytes + i))) {
            // A whole unit must lie in the chunk; the collection ends where none is left.
            do {
                text[length++] = static_cast<char16_t>(UnitAt(bytes + i));
                i += 2;
            } while (length < kSearchMaxLength && i + 1 < n && kContinue.HasUnit(UnitAt(bytes + i)));
            if (length >= kSearchMinLength) sink.found(sink.context, start, text, length, true);
        } else if (kStart.Has(bytes[i])) {
            do {
                text[length++] = bytes[i];
                ++i;
            } while (length < kSearchMaxLength && i < n && kContinue.Has(bytes[i]));
            if (length >= kSearchMinLength) sink.found(sink.context, start, text, length, false);
        } else {
            ++i;
        }
    }
}

}  // namespace lmvx
