// PM_PERFMONSOURCE: the library-wide performance source. It has no thread of its own: a read renews the
// figures when the last reading has reached the minimum age, so all readers of one cycle share a reading.
#include <cmath>
#include <mutex>

#include "kestrel.h"
#include "perf_reading.h"

namespace kestrel {

namespace detail {
struct PerfMonSourceState {
    std::mutex lock;
    unsigned periodMs = 1000;
    unsigned minimumAgeMs = 500;
    bool haveReading = false;
    perf::SystemReading last;
    perf::SystemFigures figures;

    // A process-lifetime object: the source is handed out as a plain pointer and never freed.
    static PM_PERFMONSOURCE& Global() {
        static PM_PERFMONSOURCE* const source = [] {
            static PerfMonSourceState state;
            static PM_PERFMONSOURCE made;
            made.state_ = &state;
            return &made;
        }();
        return *source;
    }

    // Called with the lock held.
    void Renew() {
        const uint64_t now = GetTickCount64();
        if (haveReading && now - last.tickMs < minimumAgeMs) return;
        perf::SystemReading reading;
        if (!perf::TakeSystemReading(reading)) return;
        figures = perf::ComputeFigures(haveReading ? last : reading, reading);
        last = reading;
        haveReading = true;
    }
};
}  // namespace detail

int PM_PERFMONSOURCE::SetUpdateInterval(unsigned periodMs, unsigned minimumAgeMs) {
    std::lock_guard lock(state_->lock);
    state_->periodMs = periodMs;
    state_->minimumAgeMs = minimumAgeMs;
    return 1;
}

unsigned PM_PERFMONSOURCE::GetSystemProcessorUsage() {
    std::lock_guard lock(state_->lock);
    state_->Renew();
    return static_cast<unsigned>(std::lround(state_->figures.cpuUsage));
}

unsigned PM_PERFMONSOURCE::GetSystemProcessCount() {
    std::lock_guard lock(state_->lock);
    state_->Renew();
    return state_->figures.processCount;
}

unsigned PM_PERFMONSOURCE::GetSystemCommitChargeTotalKB() {
    std::lock_guard lock(state_->lock);
    state_->Renew();
    return state_->figures.commitTotalKB;
}

PM_PERFMONSOURCE* GetGlobalPerfMonSourcePtr() { return &detail::PerfMonSourceState::Global(); }

}  // namespace kestrel
