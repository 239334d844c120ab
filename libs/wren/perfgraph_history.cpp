#include "perfgraph_history.h"

#include <algorithm>
#include <cstdint>

namespace wren::perfgraph {

unsigned PointCapacity(unsigned spanMs, unsigned intervalMs) {
    return std::max(1u, spanMs / std::max(1u, intervalMs));
}

unsigned IntervalsBetween(unsigned previousMs, unsigned nextMs, unsigned intervalMs) {
    const unsigned interval = std::max(1u, intervalMs);
    const unsigned elapsed = nextMs - previousMs;   // modulo 2^32: right across the counter's wrap
    if (elapsed > 0x80000000u) return 0;             // the clock went back: stay in the same interval
    const uint64_t fromBoundary = static_cast<uint64_t>(previousMs % interval) + elapsed;
    return static_cast<unsigned>(fromBoundary / interval);
}

unsigned ScaleTop(unsigned scaleMax, unsigned peak) {
    if (scaleMax != 0) return scaleMax;
    return std::max(1u, peak);
}

int PointX(unsigned age, unsigned capacity, int width) {
    if (width <= 1) return 0;
    const int right = width - 1;
    if (capacity <= 1) return right;
    const int64_t shift = static_cast<int64_t>(age) * right / (capacity - 1);
    return static_cast<int>(right - std::min<int64_t>(shift, right));
}

int ValueY(unsigned value, unsigned top, int height) {
    if (height <= 1) return 0;
    const unsigned scaleTop = std::max(1u, top);
    const uint64_t clamped = std::min(value, scaleTop);
    const int bottom = height - 1;
    return bottom - static_cast<int>(clamped * static_cast<uint64_t>(bottom) / scaleTop);
}

int GridPosition(unsigned index, unsigned parts, int length) {
    if (parts == 0 || length <= 0) return 0;
    return static_cast<int>(static_cast<int64_t>(index) * length / parts);
}

SeriesHistory::SeriesHistory(unsigned capacity) : ring_(std::max(1u, capacity), 0u) {}

void SeriesHistory::Push(unsigned value) {
    newest_ = (newest_ + 1) % Capacity();
    ring_[newest_] = value;
    count_ = std::min(count_ + 1, Capacity());
}

void SeriesHistory::Add(unsigned value, unsigned timeStamp, unsigned intervalMs) {
    if (count_ == 0) {
        ring_[newest_] = value;
        count_ = 1;
        lastStamp_ = timeStamp;
        return;
    }
    const unsigned steps = IntervalsBetween(lastStamp_, timeStamp, intervalMs);
    if (steps == 0) {
        ring_[newest_] = value;   // the same interval: the later figure wins
    } else {
        // Only the last capacity - 1 repeats can still be seen.
        const unsigned repeats = std::min(steps - 1, Capacity());
        const unsigned previous = ring_[newest_];
        for (unsigned i = 0; i < repeats; ++i) Push(previous);
        Push(value);
    }
    lastStamp_ = timeStamp;
}

unsigned SeriesHistory::At(unsigned age) const {
    if (age >= count_) return 0;
    const unsigned capacity = Capacity();
    return ring_[(newest_ + capacity - age) % capacity];
}

unsigned SeriesHistory::Peak() const {
    unsigned peak = 0;
    for (unsigned age = 0; age < count_; ++age) peak = std::max(peak, At(age));
    return peak;
}

std::vector<PlotPoint> SeriesPolyline(const SeriesHistory& history, unsigned scaleTop, int width, int height) {
    std::vector<PlotPoint> line;
    line.reserve(history.Count());
    for (unsigned age = history.Count(); age-- > 0;) {
        line.push_back({PointX(age, history.Capacity(), width), ValueY(history.At(age), scaleTop, height)});
    }
    return line;
}

void PictureFingerprint::Add(unsigned value) {
    for (int shift = 0; shift < 32; shift += 8) {
        hash_ ^= (value >> shift) & 0xFFu;
        hash_ *= 0x100000001B3ull;
    }
}

std::vector<int> ColumnTops(const std::vector<PlotPoint>& line) {
    std::vector<int> tops;
    if (line.empty()) return tops;
    const int first = line.front().x;
    tops.assign(static_cast<size_t>(line.back().x - first + 1), line.front().y);
    auto column = [&](int x) -> int& { return tops[static_cast<size_t>(x - first)]; };
    column(first) = line.front().y;
    for (size_t i = 1; i < line.size(); ++i) {
        const PlotPoint from = line[i - 1];
        const PlotPoint to = line[i];
        if (to.x == from.x) {
            column(to.x) = std::min({column(to.x), from.y, to.y});
            continue;
        }
        for (int x = from.x + 1; x <= to.x; ++x) {
            const int64_t offset = static_cast<int64_t>(to.y - from.y) * (x - from.x);
            const int span = to.x - from.x;
            // Rounded to the nearest row, halves away from zero, as the line itself is drawn.
            const int y = from.y + static_cast<int>((offset >= 0 ? offset + span / 2 : offset - span / 2) / span);
            column(x) = y;
        }
    }
    return tops;
}

}  // namespace wren::perfgraph
