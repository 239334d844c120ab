// Reads the system's TCP and UDP tables (IPv4 and IPv6) and keeps the endpoints of one process.
#pragma once
#include <cstdint>
#include <vector>

#include "endpoint.h"

namespace heron {

// Appends the endpoints owned by processId. Returns false only when not one of the four tables could be
// read; a family the system does not offer (no IPv6 stack) simply contributes nothing.
bool CollectProcessEndpoints(std::uint32_t processId, std::vector<Endpoint>& endpoints);

}  // namespace heron
