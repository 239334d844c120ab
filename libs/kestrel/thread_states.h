// Whether a process is suspended, decided from what the system process list says of its threads.
#pragma once
#include <optional>
#include <vector>

namespace kestrel::detail {

// State and wait reason of one thread, as the system process list gives them.
struct ThreadStateReading {
    unsigned long state = 0;
    unsigned long waitReason = 0;
};

// Thread state "waiting" with wait reason "suspended" is a suspended thread.
inline constexpr unsigned long ThreadStateWaiting = 5;
inline constexpr unsigned long WaitReasonSuspended = 5;

// True when every thread waits because it is suspended, false when one does not. None when the readings
// say nothing: no threads, or every thread still in the "initialized" state (0), which is all that
// systems without these fields report for every live thread.
std::optional<bool> SuspendedByThreadStates(const std::vector<ThreadStateReading>& threads);

}  // namespace kestrel::detail
