#include "memory/image_string_scan.h"

#include "memory/byte_class.h"

namespace lmvx {
namespace {

// Closing brackets, "?" and the sharp s only continue a string here, and "}" never starts one.
constexpr ByteClass kStart("\"'{[(_/*\\<%&.", {0xC4, 0xE4, 0xD6, 0xF6, 0xDC, 0xFC});
constexpr ByteClass kContinue = kStart.With("=-+,@ \t!#;:}>])?", {0xA9, 0xBB, 0xDF});

// Counts the characters that differ from the one before them; the first always counts.
size_t CountChanges(const char16_t* text, size_t length) {
    size_t changes = length > 0 ? 1 : 0;
    for (size_t k = 1; k < length; ++k) changes += text[k] != text[k - 1];
    return changes;
}

}  // namespace

bool IsImageStartChar(uint8_t byte) { return kStart.Has(byte); }
bool IsImageContinueChar(uint8_t byte) { return kContinue.Has(byte); }

bool ExtractImageStrings(const uint8_t* bytes, size_t n, const ImageStringSink& sink) {
    char16_t text[kImageMaxLength];
    size_t p = 0;
    while (p < n) {
        size_t length = 0;
        size_t minimum = 0;
        if (p + 1 < n && kStart.HasUnit(UnitAt(bytes + p))) {
            do {
                text[length++] = static_cast<char16_t>(UnitAt(bytes + p));
                p += 2;
            } while (length < kImageMaxLength && p + 1 < n && kContinue.HasUnit(UnitAt(bytes + p)));
            minimum = kImageMinUtf16Length;
        } else if (kStart.Has(bytes[p])) {
            do {
                text[length++] = bytes[p];
                ++p;
            } while (length < kImageMaxLength && p < n && kContinue.Has(bytes[p]));
            minimum = kImageMinByteLength;
        } else {
            ++p;
            continue;
        }
        // The collection does not rewind: p goes on after the collected characters, kept or not.
        if (length >= minimum && CountChanges(text, length) >= kImageMinChanges &&
            !sink.found(sink.context, text, length)) {
            return false;
        }
    }
    return true;
}

}  // namespace lmvx
