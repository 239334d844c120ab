// The history arithmetic of the history graphs: how points fall into intervals, how many are kept, how
// a series is scaled and where a point lands in a picture. Values in, values out: no window, no system call.
#pragma once
#include <vector>

namespace wren::perfgraph {

// Points kept per series: the span divided by the interval, at least 1 (an interval of 0 counts as 1 ms).
unsigned PointCapacity(unsigned spanMs, unsigned intervalMs);

// How many interval boundaries lie between two GetTickCount() stamps. Wrap-safe; a stamp that lies before
// the previous one (more than half the counter's range "later") counts as the same interval.
unsigned IntervalsBetween(unsigned previousMs, unsigned nextMs, unsigned intervalMs);

// The value drawn at the top: the set maximum, or without one the series' own peak (at least 1).
unsigned ScaleTop(unsigned scaleMax, unsigned peak);

// Column of a point by age (0 = newest, at the right edge); the oldest kept slot is at the left edge.
int PointX(unsigned age, unsigned capacity, int width);
// Row of a value: 0 at the top, height - 1 at the bottom; values above the top are drawn at the top.
int ValueY(unsigned value, unsigned top, int height);
// Position of grid line index (1 .. parts - 1) when a length is cut into equal parts.
int GridPosition(unsigned index, unsigned parts, int length);

// One series' points in a ring: the newest replaces the one of its own interval, and an interval without
// a point repeats the one before it, so a graph fed every 1000 ms at 500 ms per point draws steps.
class SeriesHistory {
public:
    explicit SeriesHistory(unsigned capacity = 1);

    void Add(unsigned value, unsigned timeStamp, unsigned intervalMs);
    unsigned Count() const { return count_; }
    unsigned Capacity() const { return static_cast<unsigned>(ring_.size()); }
    unsigned At(unsigned age) const;   // 0 = newest; 0 beyond Count()
    unsigned Peak() const;             // highest kept point, 0 when empty

private:
    void Push(unsigned value);

    std::vector<unsigned> ring_;
    unsigned newest_ = 0;   // slot of the newest point
    unsigned count_ = 0;
    unsigned lastStamp_ = 0;
};

struct PlotPoint {
    int x = 0;
    int y = 0;
};

// The series' line in a picture of the given size, oldest point first.
std::vector<PlotPoint> SeriesPolyline(const SeriesHistory& history, unsigned scaleTop, int width, int height);

// FNV-1a over 32-bit words: a cheap fingerprint of a picture's geometry. Never 0 once a word was added,
// so 0 can stand for "nothing drawn".
class PictureFingerprint {
public:
    void Add(unsigned value);
    unsigned long long Value() const { return hash_ ? hash_ : 1; }

private:
    unsigned long long hash_ = 0xCBF29CE484222325ull;
};

// The top row of the area under a line, for each column from the line's first point to its last (linear
// between points; the higher one where points share a column). Index 0 is the first point's column.
std::vector<int> ColumnTops(const std::vector<PlotPoint>& line);

}  // namespace wren::perfgraph
