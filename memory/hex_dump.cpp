#include "memory/hex_dump.h"

#include <cstring>

namespace lmvx {
namespace {

const char kHexDigits[] = "0123456789ABCDEF";

// Appends to a zero-terminated text in a fixed buffer, cutting what does not fit; the text always stays
// terminated.
class BoundedText {
public:
    BoundedText(char* out, size_t size) : out_(out), size_(size) {}
    void Put(const char* text, size_t length) {
        if (length_ + 1 >= size_) return;
        const size_t room = size_ - 1 - length_;
        const size_t take = length < room ? length : room;
        std::memcpy(out_ + length_, text, take);
        length_ += take;
        out_[length_] = '\0';
    }
    size_t Length() const { return length_; }

private:
    char* out_;
    size_t size_;
    size_t length_ = 0;
};

void PutHex32(char* at, uint32_t value) {
    for (int digit = 7; digit >= 0; --digit, value >>= 4) at[digit] = kHexDigits[value & 0xF];
}

void PutHex8(char* at, uint8_t value) {
    at[0] = kHexDigits[value >> 4];
    at[1] = kHexDigits[value & 0xF];
}

// One line of `count` (1-16) bytes; positions past count are blanks, so a short line keeps the columns.
// The address part is written as one piece and the rest as one more; a cut by the bound falls where it falls.
void PutLine(BoundedText& text, const uint8_t* bytes, size_t count, uint32_t address, bool colon) {
    char head[10];
    size_t headLength = 0;
    if (colon) head[headLength++] = ':';
    PutHex32(head + headLength, address);
    headLength += 8;
    head[headLength++] = ' ';
    text.Put(head, headLength);

    char body[52];
    std::memset(body, ' ', sizeof body);
    for (size_t i = 0; i < count; ++i) {
        PutHex8(body + i * 2 + (i >= 8 ? 1 : 0), bytes[i]);
        body[34 + i] = HexDumpChar(bytes[i]);
    }
    body[50] = '\r';
    body[51] = '\n';
    text.Put(body, sizeof body);
}

size_t FormatDump(const uint8_t* bytes, size_t n, char* out, size_t outSize, uint32_t startAddress, bool colon) {
    if (out == nullptr || outSize == 0) return 0;
    std::memset(out, 0, outSize);
    if (n == 0 || bytes == nullptr || outSize < HexDumpBufferSize(n)) return 0;
    BoundedText text(out, outSize);
    for (size_t k = 0; k < n; k += 16) {
        const size_t left = n - k;
        PutLine(text, bytes + k, left < 16 ? left : 16, startAddress + static_cast<uint32_t>(k), colon);
    }
    return text.Length();
}

}  // namespace

size_t FormatHexDump(const uint8_t* bytes, size_t n, char* out, size_t outSize, uint32_t startAddress) {
    return FormatDump(bytes, n, out, outSize, startAddress, false);
}

size_t FormatHexDumpColon(const uint8_t* bytes, size_t n, char* out, size_t outSize, uint32_t startAddress) {
    return FormatDump(bytes, n, out, outSize, startAddress, true);
}

}  // namespace lmvx
