// The memory search's chunk scanner over any bytes: every string it reports lies inside the chunk, has
// 5 to 128 characters that are the chunk's own bytes or units, and starts with a start character.
#include <memory>

#include "fuzz_check.h"
#include "memory/memory_string_scan.h"

namespace {

struct Chunk {
    const uint8_t* bytes;
    size_t n;
    size_t lastEnd;
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
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // An exact-size copy, so that a read past the chunk is a heap overflow for AddressSanitizer.
    std::unique_ptr<uint8_t[]> copy(new uint8_t[size]);
    for (size_t i = 0; i < size; ++i) copy[i] = data[i];
    Chunk chunk{copy.get(), size, 0};
    lmvx::ScanMemoryChunk(copy.get(), size, {Check, &chunk});
    return 0;
}
