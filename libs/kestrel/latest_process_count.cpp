#include "latest_process_count.h"

#include <windows.h>

#include <atomic>
#include <cstdint>

namespace kestrel::detail {
namespace {

// Tick of the snapshot in the high half, count in the low half: one atomic, so a reader never pairs a
// count with another snapshot's time.
std::atomic<uint64_t> g_latest{0};

}  // namespace

void PublishProcessCount(unsigned count) {
    g_latest.store((static_cast<uint64_t>(GetTickCount()) << 32) | count);
}

std::optional<unsigned> RecentProcessCount(unsigned maxAgeMs) {
    const uint64_t latest = g_latest.load();
    if (latest == 0) return std::nullopt;
    const DWORD age = GetTickCount() - static_cast<DWORD>(latest >> 32);
    if (age > maxAgeMs) return std::nullopt;
    return static_cast<unsigned>(latest & 0xFFFFFFFFu);
}

}  // namespace kestrel::detail
