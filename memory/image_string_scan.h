// The printable strings of an image file, in file order, as the Strings page lists them: UTF-16 strings
// of at least 3 units and byte strings of at least 5 (the different minimums are intended), at most 255
// characters each, and only strings with at least 3 changes from one character to the next.
// Pure: builds on any host.
#pragma once
#include <cstddef>
#include <cstdint>

namespace lmvx {

constexpr size_t kImageMinUtf16Length = 3;
constexpr size_t kImageMinByteLength = 5;
constexpr size_t kImageMaxLength = 255;
constexpr size_t kImageMinChanges = 3;

struct ImageStringSink {
    // Returns false to stop the extraction (out of memory).
    bool (*found)(void* context, const char16_t* text, size_t length);
    void* context;
};

bool IsImageStartChar(uint8_t byte);
bool IsImageContinueChar(uint8_t byte);

// Reports every kept string in file order; false when the sink stopped it. Reads only bytes[0 .. n).
bool ExtractImageStrings(const uint8_t* bytes, size_t n, const ImageStringSink& sink);

}  // namespace lmvx
