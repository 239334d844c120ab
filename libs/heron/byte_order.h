// Conversions of the values the system's endpoint tables hold.
#pragma once
#include <array>
#include <cstdint>

namespace heron {

// A table's port field holds the port in network order in its first two bytes (as stored in memory);
// returns it in host order.
std::uint32_t HostPortFromTableValue(std::uint32_t tableValue);
// The four octets of an IPv4 address packed with the first octet in the lowest byte.
std::uint32_t PackIPv4(const std::array<std::uint8_t, 16>& address);
// A table's IPv4 field (the octets in order in memory) as a 16-byte address whose first four bytes are
// the octets.
std::array<std::uint8_t, 16> IPv4FromTableValue(std::uint32_t tableValue);
// A table's 16-byte IPv6 field copied as it is.
std::array<std::uint8_t, 16> IPv6FromTableBytes(const unsigned char* bytes);
// True when every byte of the address is zero (0.0.0.0 or ::): such an address has no name.
bool IsUnspecifiedAddress(const std::array<std::uint8_t, 16>& address);

}  // namespace heron
