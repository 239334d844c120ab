// A set of byte values built at compile time, for the string scanners' character classes, and the
// reduction of a UTF-16 unit to a byte. Pure: builds on any host.
#pragma once
#include <array>
#include <cstdint>
#include <string_view>

namespace lmvx {

class ByteClass {
public:
    constexpr ByteClass() = default;
    // The letters, the digits, the listed characters and the listed extra bytes.
    constexpr ByteClass(std::string_view characters, std::initializer_list<uint8_t> extra) {
        for (int c = 'a'; c <= 'z'; ++c) members_[c] = true;
        for (int c = 'A'; c <= 'Z'; ++c) members_[c] = true;
        for (int c = '0'; c <= '9'; ++c) members_[c] = true;
        for (char c : characters) members_[static_cast<uint8_t>(c)] = true;
        for (uint8_t b : extra) members_[b] = true;
    }
    constexpr ByteClass With(std::string_view characters, std::initializer_list<uint8_t> extra) const {
        ByteClass wider = *this;
        for (char c : characters) wider.members_[static_cast<uint8_t>(c)] = true;
        for (uint8_t b : extra) wider.members_[b] = true;
        return wider;
    }
    constexpr bool Has(uint8_t byte) const { return members_[byte]; }
    // A UTF-16 unit belongs when its single-byte form does. Units 0x00-0xFF reduce to the byte of the same
    // value in the Windows-1252 code page as in the C locale; units above have no single-byte form in the
    // C locale, and in Windows-1252 only the ones that reduce to 0x80-0x9F do, which no class holds.
    constexpr bool HasUnit(uint16_t unit) const { return unit < 0x100 && members_[unit]; }

private:
    std::array<bool, 256> members_{};
};

// The 16-bit little-endian unit at a byte position (any position, also odd ones).
constexpr uint16_t UnitAt(const uint8_t* bytes) { return static_cast<uint16_t>(bytes[0] | (bytes[1] << 8)); }

}  // namespace lmvx
