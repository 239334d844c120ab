// How the option store judges a value it found in the registry, and where it keeps its values.
#pragma once
#include <string>
#include <string_view>

namespace wren {

// Registry value types as the registry numbers them (REG_BINARY, REG_DWORD).
inline constexpr unsigned long kStoredTypeBinary = 3;
inline constexpr unsigned long kStoredTypeDword = 4;

// A 32-bit option is usable only as a REG_DWORD of exactly 4 bytes; anything else reads as the default.
unsigned long DwordOrDefault(unsigned long type, unsigned long size, unsigned long storedValue,
                             unsigned long defaultValue);

// A block option is usable only as REG_BINARY that fits the caller's buffer.
bool BinaryBlockFits(unsigned long type, unsigned long storedSize, unsigned long bufferSize);

// "Software\Orvane Software\<application name>\Settings"; empty while no application name is known.
std::wstring SettingsKeyPath(std::wstring_view applicationName);

}  // namespace wren
