// PERFGRAPH: set-up, feeding and reading the series.
#include <algorithm>
#include <vector>

#include "perfgraph_state.h"
#include "wren.h"

namespace wren {
namespace {

using detail::PerfGraphSeries;

int CopyText(const std::wstring& text, wchar_t* buffer, unsigned length) {
    if (!buffer || length == 0) return 0;
    const size_t count = std::min<size_t>(text.size(), length - 1);
    std::copy_n(text.c_str(), count, buffer);
    buffer[count] = L'\0';
    return 1;
}

}  // namespace

// Reads one series under the data lock; fallback when the graph or the series does not exist.
template <typename Result, typename Read>
Result ReadSeries(detail::PerfGraphState* state, unsigned series, Result fallback, Read read) {
    if (!state) return fallback;
    std::lock_guard lock(state->dataLock);
    if (series >= state->series.size()) return fallback;
    return read(state->series[series]);
}

PERFGRAPH::~PERFGRAPH() { Delete(); }

int PERFGRAPH::Init(unsigned spanMs, unsigned intervalMs, unsigned seriesCount) {
    Delete();
    auto* state = new (std::nothrow) detail::PerfGraphState;
    if (!state) return 0;
    state->intervalMs = std::max(1u, intervalMs);
    state->capacity = perfgraph::PointCapacity(spanMs, intervalMs);
    try {
        state->series.resize(seriesCount);
        for (auto& series : state->series) series.history = perfgraph::SeriesHistory(state->capacity);
    } catch (...) {   // nothing may leave the library
        delete state;
        return 0;
    }
    state_ = state;
    return 1;
}

int PERFGRAPH::Delete() {
    if (!state_) return 0;
    if (state_->drawingThread == std::this_thread::get_id()) {
        // A drawing this thread left open ends here, unseen.
        state_->drawing.Clear();
        state_->drawingThread = std::thread::id{};
        state_->renderLock.unlock();
    } else {
        // Wait for a drawing in progress on another thread.
        std::lock_guard render(state_->renderLock);
    }
    delete std::exchange(state_, nullptr);
    return 1;
}

int PERFGRAPH::SetRegisterDisplayInfo(const wchar_t* name, const wchar_t* unit, unsigned divisor, COLORREF colour,
                                      unsigned series) {
    if (!state_) return 0;
    std::lock_guard lock(state_->dataLock);
    if (series >= state_->series.size()) return 0;
    try {
        PerfGraphSeries& entry = state_->series[series];
        entry.name = name ? name : L"";
        entry.unit = unit ? unit : L"";
        entry.divisor = std::max(1u, divisor);
        entry.colour = colour;
    } catch (...) {
        return 0;
    }
    return 1;
}

int PERFGRAPH::SetScaleMax(unsigned maximum, unsigned series) {
    if (!state_) return 0;
    std::lock_guard lock(state_->dataLock);
    if (series >= state_->series.size()) return 0;
    state_->series[series].scaleMax = maximum;
    return 1;
}

int PERFGRAPH::SetDataPoint(unsigned value, unsigned timeStamp, unsigned series) {
    if (!state_) return 0;
    std::lock_guard lock(state_->dataLock);
    if (series >= state_->series.size()) return 0;
    state_->series[series].history.Add(value, timeStamp, state_->intervalMs);
    return 1;
}

unsigned PERFGRAPH::GetSeriesCount() const {
    if (!state_) return 0;
    std::lock_guard lock(state_->dataLock);
    return static_cast<unsigned>(state_->series.size());
}

unsigned PERFGRAPH::GetPointCapacity() const { return state_ ? state_->capacity : 0; }

unsigned PERFGRAPH::GetPointCount(unsigned series) const {
    return ReadSeries(state_, series, 0u, [&](const PerfGraphSeries& entry) { return entry.history.Count(); });
}

unsigned PERFGRAPH::GetPoint(unsigned series, unsigned age) const {
    return ReadSeries(state_, series, 0u, [&](const PerfGraphSeries& entry) { return entry.history.At(age); });
}

unsigned PERFGRAPH::GetScaleMax(unsigned series) const {
    return ReadSeries(state_, series, 0u, [&](const PerfGraphSeries& entry) { return entry.scaleMax; });
}

unsigned PERFGRAPH::GetScaleTop(unsigned series) const {
    return ReadSeries(state_, series, 0u, [&](const PerfGraphSeries& entry) {
        return perfgraph::ScaleTop(entry.scaleMax, entry.history.Peak());
    });
}

unsigned PERFGRAPH::GetDisplayDivisor(unsigned series) const {
    return ReadSeries(state_, series, 0u, [&](const PerfGraphSeries& entry) { return entry.divisor; });
}

unsigned PERFGRAPH::GetDisplayValue(unsigned series) const {
    return ReadSeries(state_, series, 0u,
                      [&](const PerfGraphSeries& entry) { return entry.history.At(0) / entry.divisor; });
}

COLORREF PERFGRAPH::GetSeriesColour(unsigned series) const {
    return ReadSeries(state_, series, COLORREF{0}, [&](const PerfGraphSeries& entry) { return entry.colour; });
}

int PERFGRAPH::GetSeriesName(unsigned series, wchar_t* buffer, unsigned length) const {
    return ReadSeries(state_, series, 0,
                      [&](const PerfGraphSeries& entry) { return CopyText(entry.name, buffer, length); });
}

int PERFGRAPH::GetSeriesUnit(unsigned series, wchar_t* buffer, unsigned length) const {
    return ReadSeries(state_, series, 0,
                      [&](const PerfGraphSeries& entry) { return CopyText(entry.unit, buffer, length); });
}
unsigned long long PERFGRAPH::GetPictureSignature(int width, int height) const {
    if (!state_ || width <= 0 || height <= 0) return 0;
    perfgraph::PictureFingerprint fingerprint;
    fingerprint.Add(static_cast<unsigned>(width));
    fingerprint.Add(static_cast<unsigned>(height));
    fingerprint.Add(state_->capacity);     // with the interval, where the grid's columns fall
    fingerprint.Add(state_->intervalMs);
    std::lock_guard lock(state_->dataLock);
    fingerprint.Add(static_cast<unsigned>(state_->series.size()));
    for (const PerfGraphSeries& entry : state_->series) {
        const unsigned top = perfgraph::ScaleTop(entry.scaleMax, entry.history.Peak());
        const std::vector<perfgraph::PlotPoint> line = perfgraph::SeriesPolyline(entry.history, top, width, height);
        fingerprint.Add(static_cast<unsigned>(line.size()));
        for (const perfgraph::PlotPoint& point : line) {
            fingerprint.Add(static_cast<unsigned>(point.x));
            fingerprint.Add(static_cast<unsigned>(point.y));
        }
    }
    return fingerprint.Value();
}

}  // namespace wren
