// The process count of the provider's latest snapshot, shared with the system counters: under Wine a
// process-list query reads several /proc files per process, so the counters reuse a fresh snapshot's count
// instead of asking again in the same cycle.
#pragma once
#include <optional>

namespace kestrel::detail {

void PublishProcessCount(unsigned count);
// The latest published count when it is at most maxAgeMs old; nothing otherwise.
std::optional<unsigned> RecentProcessCount(unsigned maxAgeMs);

}  // namespace kestrel::detail
