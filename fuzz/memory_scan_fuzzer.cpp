// The memory search's chunk scanner over any bytes: every string it reports lies inside the chunk, has
// 5 to 128 characters that are the chunk's own bytes or units, starts with a start character, and the
// reports are exactly those of a plain position-by-position reading of the rules below.
#include <memory>
#include <string>
#include <vector>

#include "fuzz_check.h"
#include "memory/memory_string_scan.h"

namespace {

struct Found {
    size_t offset;
    std::u16string text;
    bool utf16;
    bool operator==(const Found&) const = default;
};

struct Chunk {
    const uint8_t* bytes;
    size_t n;
    size_t lastEnd;
    std::vector<Found> found;
};

void Check(void* context, size_t offset, const char16_t* text, size_t length, bool utf16) {
    Chunk& chunk = *static_cast<Chunk*>(context);
    const size_t width = utf16 ? 2 : 1;
    FUZZ_CHECK(length >= lmvx::kSearchMinLength && length <= lmvx::kSearchMaxLength);
    FUZZ_CHECK(offset >= chunk.lastEnd && offset + length * width <= chunk.n);
    for (size_t k = 0; k < length; ++k) {
        const uint8_t* at = chunk.bytes + offset + k * width;
        const char16_t unit = utf16 ? static_cast<char16_t>(at[0] | (at[1] << 8)) : at[0];
        FUZZ_CHECK(text[k] == unit && unit < 0x100);
        FUZZ_CHECK(k == 0 ? lmvx::IsSearchStartChar(static_cast<uint8_t>(unit))
                          : lmvx::IsSearchContinueChar(static_cast<uint8_t>(unit)));
    }
    chunk.lastEnd = offset + length * width;
    chunk.found.push_back({offset, std::u16string(text, length), utf16});
}

// The rules one position at a time: a UTF-16 unit (only units below 0x100 have a byte) in the start class
// begins a UTF-16 string, else a start-class byte a byte string; either collects continuation characters
// up to 128, and a string of fewer than 5 is dropped without going back.
std::vector<Found> ScanByTheRules(const uint8_t* bytes, size_t n) {
    std::vector<Found> found;
    auto unitByte = [&](size_t i, bool start) {
        const unsigned unit = bytes[i] | (bytes[i + 1] << 8);
        return unit < 0x100 && (start ? lmvx::IsSearchStartChar(static_cast<uint8_t>(unit))
                                      : lmvx::IsSearchContinueChar(static_cast<uint8_t>(unit)));
    };
    size_t i = 0;
    while (i < n) {
        const size_t start = i;
        std::u16string text;
        bool utf16 = false;
        if (i + 1 < n && unitByte(i, true)) {
            utf16 = true;
            do {
                text += static_cast<char16_t>(bytes[i] | (bytes[i + 1] << 8));
                i += 2;
            } while (text.size() < lmvx::kSearchMaxLength && i + 1 < n && unitByte(i, false));
        } else if (lmvx::IsSearchStartChar(bytes[i])) {
            do {
                text += static_cast<char16_t>(bytes[i++]);
            } while (text.size() < lmvx::kSearchMaxLength && i < n && lmvx::IsSearchContinueChar(bytes[i]));
        } else {
            ++i;
            continue;
        }
        if (text.size() >= lmvx::kSearchMinLength) found.push_back({start, text, utf16});
    }
    return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // An exact-size copy, so that a read past the chunk is a heap overflow for AddressSanitizer.
    std::unique_ptr<uint8_t[]> copy(new uint8_t[size]);
    for (size_t i = 0; i < size; ++i) copy[i] = data[i];
    Chunk chunk{copy.get(), size, 0, {}};
    lmvx::ScanMemoryChunk(copy.get(), size, {Check, &chunk});
    FUZZ_CHECK(chunk.found == ScanByTheRules(copy.get(), size));
    return 0;
}
