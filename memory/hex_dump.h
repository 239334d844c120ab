// The hex dump text of process memory: one 61-character line per 16 bytes (address, two groups of eight
// bytes in hex, the bytes as characters), "\r\n" after each. Pure: no system calls, builds on any host.
#pragma once
#include <cstddef>
#include <cstdint>

namespace lmvx {

// Fills out (outSize bytes, zero-filled first) with the dump of n bytes whose first byte lies at
// startAddress (32-bit; higher address bits are the caller's to drop). Refuses (returns 0, writes nothing
// but the zero fill) when n is 0 or outSize is below ((n / 16) + 1) * 62. Returns the text length.
size_t FormatHexDump(const uint8_t* bytes, size_t n, char* out, size_t outSize, uint32_t startAddress);

// The same with a colon before each address. Its lines are one character longer, but it takes the same
// buffer size: with a short last line the final line end is cut by the bound.
size_t FormatHexDumpColon(const uint8_t* bytes, size_t n, char* out, size_t outSize, uint32_t startAddress);

// The size of the text buffer both dumps ask for.
constexpr size_t HexDumpBufferSize(size_t n) { return ((n / 16) + 1) * 62; }

// The character column: a byte above "!" (taken as signed, so 0x22-0x7F) or the blank prints as itself.
constexpr char HexDumpChar(uint8_t byte) {
    const signed char value = static_cast<signed char>(byte);
    return (value > 0x21 || value == 0x20) ? static_cast<char>(value) : '.';
}

}  // namespace lmvx
