#include "endpoint_id.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <unordered_set>

namespace heron {

namespace {

constexpr std::size_t kIdentityLength = 4 + 4 + 16 + 4 + 16 + 4;
using Identity = std::array<std::uint8_t, kIdentityLength>;

// The identifying fields as bytes in a fixed order (numbers little-endian), independent of the machine.
Identity IdentityOf(const Endpoint& endpoint) {
    Identity bytes{};
    std::size_t at = 0;
    const auto putNumber = [&](std::uint32_t value) {
        for (int shift = 0; shift < 32; shift += 8) bytes[at++] = static_cast<std::uint8_t>(value >> shift);
    };
    const auto putAddress = [&](const std::array<std::uint8_t, 16>& address) {
        std::copy(address.begin(), address.end(), bytes.begin() + at);
        at += address.size();
    };
    putNumber(static_cast<std::uint32_t>(endpoint.protocol));
    putNumber(endpoint.processId);
    putAddress(endpoint.localAddress);
    putNumber(endpoint.localPort);
    putAddress(endpoint.remoteAddress);
    putNumber(endpoint.remotePort);
    return bytes;
}

std::uint32_t NonZero(std::uint32_t id) { return id == 0 ? 1 : id; }

}  // namespace

std::uint32_t ComputeGenericID(const Endpoint& endpoint) {
    constexpr std::uint32_t kOffsetBasis = 2166136261u;
    constexpr std::uint32_t kPrime = 16777619u;
    std::uint32_t hash = kOffsetBasis;
    for (std::uint8_t byte : IdentityOf(endpoint)) {
        hash ^= byte;
        hash *= kPrime;
    }
    return NonZero(hash);
}

std::vector<std::uint32_t> AssignGenericIDs(const std::vector<Endpoint>& endpoints) {
    std::vector<Identity> identities;
    identities.reserve(endpoints.size());
    for (const Endpoint& endpoint : endpoints) identities.push_back(IdentityOf(endpoint));

    // Settle collisions in the order of the identifying fields, not the system's listing order.
    std::vector<std::size_t> order(endpoints.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return identities[a] < identities[b]; });

    std::vector<std::uint32_t> ids(endpoints.size());
    std::unordered_set<std::uint32_t> taken;
    for (std::size_t index : order) {
        std::uint32_t id = ComputeGenericID(endpoints[index]);
        while (taken.count(id) != 0) id = NonZero(id + 1);
        taken.insert(id);
        ids[index] = id;
    }
    return ids;
}

}  // namespace heron
