// Takes one reading of the system's performance counters.
#pragma once
#include "perf_math.h"

namespace kestrel::perf {

// Fills what the system gives; a counter the system does not give stays 0. False when nothing could be read.
bool TakeSystemReading(SystemReading& reading);

}  // namespace kestrel::perf
