// One endpoint as the library keeps it internally, independent of the table it came from.
#pragma once
#include <array>
#include <cstdint>

namespace heron {

struct Endpoint {
    int protocol = 0;                       // kProtocolTcp ... kProtocolUdp6 (platform/heron.h)
    std::uint32_t processId = 0;
    // Addresses in network order; an IPv4 address fills the first four bytes, the rest stay zero.
    std::array<std::uint8_t, 16> localAddress{};
    std::array<std::uint8_t, 16> remoteAddress{};
    std::uint32_t localScopeId = 0;          // IPv6 only; needed to look up link-local names
    std::uint32_t remoteScopeId = 0;
    std::uint32_t localPort = 0;             // host order
    std::uint32_t remotePort = 0;
    std::uint32_t state = 0;                 // TCP state number; 0 for UDP
    std::uint64_t creationTime = 0;          // FILETIME value, 0 when the table has none
};

}  // namespace heron
