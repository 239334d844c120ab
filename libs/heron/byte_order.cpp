#include "byte_order.h"

#include <algorithm>
#include <cstring>

namespace heron {

namespace {
// The bytes of a 32-bit field in memory order, whatever the machine's byte order.
std::array<std::uint8_t, 4> MemoryBytes(std::uint32_t value) {
    std::array<std::uint8_t, 4> bytes{};
    std::memcpy(bytes.data(), &value, bytes.size());
    return bytes;
}
}  // namespace

std::uint32_t HostPortFromTableValue(std::uint32_t tableValue) {
    const auto bytes = MemoryBytes(tableValue);
    return (static_cast<std::uint32_t>(bytes[0]) << 8) | bytes[1];
}

std::uint32_t PackIPv4(const std::array<std::uint8_t, 16>& address) {
    return static_cast<std::uint32_t>(address[0]) | (static_cast<std::uint32_t>(address[1]) << 8) |
           (static_cast<std::uint32_t>(address[2]) << 16) | (static_cast<std::uint32_t>(address[3]) << 24);
}

std::array<std::uint8_t, 16> IPv4FromTableValue(std::uint32_t tableValue) {
    const auto bytes = MemoryBytes(tableValue);
    std::array<std::uint8_t, 16> address{};
    std::copy(bytes.begin(), bytes.end(), address.begin());
    return address;
}

std::array<std::uint8_t, 16> IPv6FromTableBytes(const unsigned char* bytes) {
    std::array<std::uint8_t, 16> address{};
    std::memcpy(address.data(), bytes, address.size());
    return address;
}

bool IsUnspecifiedAddress(const std::array<std::uint8_t, 16>& address) {
    return std::all_of(address.begin(), address.end(), [](std::uint8_t byte) { return byte == 0; });
}

}  // namespace heron
