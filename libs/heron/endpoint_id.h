// The GenericID of an endpoint: a 32-bit identity that stays the same across queries as long as the
// endpoint exists, so the program can keep it as a list row's item data.
#pragma once
#include <cstdint>
#include <vector>

#include "endpoint.h"

namespace heron {

// FNV-1a over what identifies an endpoint: protocol, owning process, local and remote address and port.
// The state and creation time are left out on purpose: they change (or are unknown) while the endpoint
// stays the same. Never 0, because the program treats item data 0 as "no endpoint".
std::uint32_t ComputeGenericID(const Endpoint& endpoint);

// The IDs of one query's endpoints, in their order, all distinct. A collision (two endpoints with the same
// hash) is settled by giving the endpoint whose identifying fields sort later the next free value (hash + 1,
// + 2, ..., skipping 0). The outcome depends only on the set of endpoints, not on the order the system
// lists them in, so the IDs stay stable while the colliding endpoints exist.
std::vector<std::uint32_t> AssignGenericIDs(const std::vector<Endpoint>& endpoints);

}  // namespace heron
