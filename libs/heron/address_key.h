// An address whose host name is looked up: family, 16 address bytes and (IPv6) scope.
#pragma once
#include <array>
#include <compare>
#include <cstdint>

namespace heron {

struct AddressKey {
    bool ipv6 = false;
    std::array<std::uint8_t, 16> address{};   // IPv4: the four octets first
    std::uint32_t scopeId = 0;

    auto operator<=>(const AddressKey&) const = default;
};

}  // namespace heron
