// String-table resources hold their strings in blocks of 16: block (id / 16 + 1), slot id % 16,
// each slot a 16-bit character count followed by that many characters (no terminator).
#pragma once
#include <windows.h>
#include <array>
#include <cstddef>
#include <string>

namespace finch {

constexpr UINT StringsPerBlock = 16;

constexpr UINT StringBlockOf(UINT id) { return id / StringsPerBlock + 1; }
constexpr UINT FirstStringIdOf(UINT block) { return (block - 1) * StringsPerBlock; }

using StringBlock = std::array<std::wstring, StringsPerBlock>;

// Reads the 16 counted strings of one block. A block cut short (a count or text past the end of the data)
// yields the strings that fit whole and empty strings for the rest.
StringBlock ParseStringBlock(const void* data, size_t byteLength);

}  // namespace finch
