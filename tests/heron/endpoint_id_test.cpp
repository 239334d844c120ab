#include "endpoint_id.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <set>
#include <utility>

namespace heron {
namespace {

Endpoint SampleEndpoint() {
    return {.protocol = 0, .processId = 4321, .localAddress = {127, 0, 0, 1}, .remoteAddress = {10, 1, 2, 3},
            .localPort = 50123, .remotePort = 443, .state = 5};
}

// The same endpoint has the same non-zero id; every identifying field changes it, state and creation time do not.
TEST(ComputeGenericID, EveryIdentifyingFieldAndNothingElseChangesTheId) {
    const std::uint32_t original = ComputeGenericID(SampleEndpoint());
    EXPECT_NE(0u, original);
    const std::pair<const char*, std::function<void(Endpoint&)>> changes[] = {
        {"protocol", [](Endpoint& e) { e.protocol = 16; }},
        {"process", [](Endpoint& e) { e.processId += 4; }},
        {"local address", [](Endpoint& e) { e.localAddress[3] = 2; }},
        {"local address, IPv6 part", [](Endpoint& e) { e.localAddress[15] = 1; }},
        {"local port", [](Endpoint& e) { e.localPort += 1; }},
        {"remote address", [](Endpoint& e) { e.remoteAddress[0] = 11; }},
        {"remote port", [](Endpoint& e) { e.remotePort += 1; }},
        {"local and remote swapped", [](Endpoint& e) {
             std::swap(e.localAddress, e.remoteAddress);
             std::swap(e.localPort, e.remotePort);
         }},
    };
    for (const auto& [what, change] : changes) {
        Endpoint endpoint = SampleEndpoint();
        change(endpoint);
        EXPECT_NE(original, ComputeGenericID(endpoint)) << what;
    }
    Endpoint endpoint = SampleEndpoint();
    endpoint.state = 8;
    endpoint.creationTime = 133000000000000000ull;
    EXPECT_EQ(original, ComputeGenericID(endpoint));
}

TEST(AssignGenericIDs, DistinctEndpointsKeepTheirHashesAndDuplicatesGetDistinctIds) {
    std::vector<Endpoint> endpoints;
    for (std::uint32_t port = 1000; port < 1010; ++port) {
        Endpoint endpoint = SampleEndpoint();
        endpoint.localPort = port;
        endpoints.push_back(endpoint);
    }
    const auto ids = AssignGenericIDs(endpoints);
    ASSERT_EQ(endpoints.size(), ids.size());
    for (std::size_t i = 0; i < endpoints.size(); ++i) EXPECT_EQ(ComputeGenericID(endpoints[i]), ids[i]);

    // Duplicate rows get distinct non-zero ids; the first keeps the plain hash, so an endpoint's id does not
    // move when a duplicate appears.
    const auto duplicates = AssignGenericIDs(std::vector<Endpoint>(3, SampleEndpoint()));
    const std::set<std::uint32_t> distinct(duplicates.begin(), duplicates.end());
    EXPECT_EQ(3u, distinct.size());
    EXPECT_EQ(0u, distinct.count(0));
    EXPECT_EQ(ComputeGenericID(SampleEndpoint()), duplicates[0]);
}

// Two different endpoints whose hashes collide, found by a deterministic search over pseudo-random owners
// and ports (a 32-bit hash has colliding pairs among a few hundred thousand inputs).
std::optional<std::pair<Endpoint, Endpoint>> FindCollision() {
    constexpr std::uint32_t kCandidates = 300000;
    const auto candidate = [](std::uint32_t index) {
        Endpoint endpoint = SampleEndpoint();
        std::uint32_t state = index;
        for (int round = 0; round < 3; ++round) state = state * 1664525u + 1013904223u;   // LCG steps
        endpoint.processId = state;
        endpoint.localPort = (state >> 7) & 0xFFFF;
        endpoint.remotePort = index & 0xFFFF;
        return endpoint;
    };
    std::vector<std::pair<std::uint32_t, std::uint32_t>> hashes;   // hash, candidate index
    hashes.reserve(kCandidates);
    for (std::uint32_t index = 0; index < kCandidates; ++index) {
        hashes.emplace_back(ComputeGenericID(candidate(index)), index);
    }
    std::sort(hashes.begin(), hashes.end());
    for (std::size_t i = 1; i < hashes.size(); ++i) {
        if (hashes[i].first == hashes[i - 1].first) {
            return std::make_pair(candidate(hashes[i - 1].second), candidate(hashes[i].second));
        }
    }
    return std::nullopt;
}

TEST(AssignGenericIDs, CollisionsAreSettledTheSameWayWhateverTheListingOrder) {
    const auto collision = FindCollision();
    ASSERT_TRUE(collision.has_value()) << "no colliding pair in the search range";
    const auto& [first, second] = *collision;
    ASSERT_EQ(ComputeGenericID(first), ComputeGenericID(second));

    const auto forward = AssignGenericIDs({first, second});
    const auto backward = AssignGenericIDs({second, first});
    EXPECT_NE(forward[0], forward[1]);
    EXPECT_EQ(forward[0], backward[1]);
    EXPECT_EQ(forward[1], backward[0]);
    // One of the two keeps the hash; the other gets the next value.
    const std::set<std::uint32_t> ids(forward.begin(), forward.end());
    EXPECT_EQ(1u, ids.count(ComputeGenericID(first)));
    EXPECT_EQ(1u, ids.count(ComputeGenericID(first) + 1 == 0 ? 1 : ComputeGenericID(first) + 1));
}

}  // namespace
}  // namespace heron
