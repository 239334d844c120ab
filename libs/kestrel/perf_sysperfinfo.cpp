// _SYSPERFINFO: the system counters object. Update() takes a reading and computes the figures against
// the previous one; the getters hand out the figures of the last complete Update().
#include <mutex>
#include <new>

#include "kestrel.h"
#include "perf_reading.h"

namespace kestrel {

namespace detail {
struct SysPerfState {
    std::mutex lock;   // readers on other threads see one complete set of figures
    perf::SystemReading last;
    perf::SystemFigures figures;
};
}  // namespace detail

namespace {
template <typename Result, typename Read>
Result ReadFigure(detail::SysPerfState* state, Read read) {
    if (!state) return Result{};
    std::lock_guard lock(state->lock);
    return read(state->figures);
}
}  // namespace

int _SYSPERFINFO::Init() {
    if (state_) return 1;
    auto* state = new (std::nothrow) detail::SysPerfState;
    if (!state) return 0;
    perf::TakeSystemReading(state->last);
    // The first figures cover no time: usage 0, memory as it is now.
    state->figures = perf::ComputeFigures(state->last, state->last);
    state_ = state;
    return 1;
}

int _SYSPERFINFO::Update() {
    if (!state_) return 0;
    perf::SystemReading reading;
    if (!perf::TakeSystemReading(reading)) return 0;
    std::lock_guard lock(state_->lock);
    state_->figures = perf::ComputeFigures(state_->last, reading);
    state_->last = reading;
    return 1;
}

int _SYSPERFINFO::Delete() {
    if (!state_) return 0;
    delete state_;
    state_ = nullptr;
    return 1;
}

using Figures = perf::SystemFigures;

double _SYSPERFINFO::GetCPUUsage() const {
    return ReadFigure<double>(state_, [](const Figures& f) { return f.cpuUsage; });
}
double _SYSPERFINFO::GetSystemCPUUsage() const {
    return ReadFigure<double>(state_, [](const Figures& f) { return f.systemCpuUsage; });
}
unsigned _SYSPERFINFO::GetContextSwitchDelta() const {
    return ReadFigure<unsigned>(state_, [](const Figures& f) { return f.contextSwitchesPerSecond; });
}
unsigned _SYSPERFINFO::GetPhysicalMemoryAvailableKB() const {
    return ReadFigure<unsigned>(state_, [](const Figures& f) { return f.physicalAvailableKB; });
}
unsigned _SYSPERFINFO::GetPhysicalMemoryTotalKB() const {
    return ReadFigure<unsigned>(state_, [](const Figures& f) { return f.physicalTotalKB; });
}
unsigned _SYSPERFINFO::GetCommitChargeTotalKB() const {
    return ReadFigure<unsigned>(state_, [](const Figures& f) { return f.commitTotalKB; });
}
unsigned _SYSPERFINFO::GetCommitChargeLimitKB() const {
    return ReadFigure<unsigned>(state_, [](const Figures& f) { return f.commitLimitKB; });
}
unsigned _SYSPERFINFO::GetPhysicalMemorySystemCacheKB() const {
    return ReadFigure<unsigned>(state_, [](const Figures& f) { return f.systemCacheKB; });
}
unsigned _SYSPERFINFO::GetProcessCount() const {
    return ReadFigure<unsigned>(state_, [](const Figures& f) { return f.processCount; });
}

}  // namespace kestrel
