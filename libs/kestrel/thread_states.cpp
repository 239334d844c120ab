#include "thread_states.h"

#include <algorithm>

namespace kestrel::detail {

std::optional<bool> SuspendedByThreadStates(const std::vector<ThreadStateReading>& threads) {
    const auto initialized = [](const ThreadStateReading& thread) { return thread.state == 0; };
    if (threads.empty() || std::all_of(threads.begin(), threads.end(), initialized)) return std::nullopt;
    return std::all_of(threads.begin(), threads.end(), [](const ThreadStateReading& thread) {
        return thread.state == ThreadStateWaiting && thread.waitReason == WaitReasonSuspended;
    });
}

}  // namespace kestrel::detail
