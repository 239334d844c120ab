#include "byte_order.h"

#include <winsock2.h>

#include <gtest/gtest.h>

#include <cstring>

namespace heron {
namespace {

std::uint32_t TableValueFromBytes(std::uint8_t b0, std::uint8_t b1, std::uint8_t b2, std::uint8_t b3) {
    const std::uint8_t bytes[4] = {b0, b1, b2, b3};
    std::uint32_t value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

TEST(HostPortFromTableValue, UndoesNetworkOrderForEveryPortAndIgnoresTheUpperBytes) {
    for (std::uint32_t port = 0; port <= 0xFFFF; ++port) {
        const std::uint32_t tableValue = htons(static_cast<u_short>(port));
        ASSERT_EQ(port, HostPortFromTableValue(tableValue)) << "port " << port;
    }
    // The first two bytes, high byte first.
    EXPECT_EQ((0x12u << 8) | 0x34u, HostPortFromTableValue(TableValueFromBytes(0x12, 0x34, 0, 0)));
    // Whatever the system leaves in the upper two bytes is not part of the port.
    EXPECT_EQ((0x12u << 8) | 0x34u, HostPortFromTableValue(TableValueFromBytes(0x12, 0x34, 0xAB, 0xCD)));
}

TEST(IPv4Address, KeepsTheOctetsInOrderAndPacksTheFirstIntoTheLowestByteAsTheSystemDoes) {
    const std::uint8_t octets[4] = {192, 168, 7, 21};
    const auto address = IPv4FromTableValue(TableValueFromBytes(octets[0], octets[1], octets[2], octets[3]));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(octets[i], address[i]);
    for (int i = 4; i < 16; ++i) EXPECT_EQ(0, address[i]);

    const std::uint32_t packed = PackIPv4(address);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(octets[i], (packed >> (8 * i)) & 0xFF) << "octet " << i;
    in_addr system{};   // the packed value is the system's in_addr
    system.S_un.S_un_b = {10, 20, 30, 40};
    EXPECT_EQ(system.S_un.S_addr, PackIPv4(IPv4FromTableValue(system.S_un.S_addr)));
}

TEST(IPv6Address, IsCopiedUnchangedAndUnspecifiedOnlyWhenAllBytesAreZero) {
    unsigned char bytes[16];
    for (int i = 0; i < 16; ++i) bytes[i] = static_cast<unsigned char>(0xF0 + i);
    const auto address = IPv6FromTableBytes(bytes);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(bytes[i], address[i]);
    const std::array<std::uint8_t, 16> zero{};
    EXPECT_TRUE(IsUnspecifiedAddress(zero));
    for (std::size_t i = 0; i < zero.size(); ++i) {
        auto changed = zero;
        changed[i] = 1;
        EXPECT_FALSE(IsUnspecifiedAddress(changed)) << "byte " << i;
    }
}

}  // namespace
}  // namespace heron
