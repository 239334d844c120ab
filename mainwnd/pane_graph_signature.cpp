#include "mainwnd/pane_graph_signature.h"

namespace lmvx {
namespace {

// FNV-1a over 32-bit words.
class Fingerprint {
public:
    void Add(unsigned value) {
        for (int shift = 0; shift < 32; shift += 8) {
            hash_ ^= (value >> shift) & 0xFFu;
            hash_ *= 0x100000001B3ull;
        }
    }
    uint64_t Value() const { return hash_; }

private:
    uint64_t hash_ = 0xCBF29CE484222325ull;
};

}  // namespace

uint64_t PaneGraphSignature(const wren::PERFGRAPH* graph) {
    if (!graph) return 0;
    Fingerprint fingerprint;
    const unsigned seriesCount = graph->GetSeriesCount();
    fingerprint.Add(seriesCount);
    for (unsigned series = 0; series < seriesCount; ++series) {
        const unsigned count = graph->GetPointCount(series);
        fingerprint.Add(count);
        fingerprint.Add(graph->GetScaleTop(series));
        for (unsigned age = 0; age < count; ++age) fingerprint.Add(graph->GetPoint(series, age));
    }
    return fingerprint.Value();
}

}  // namespace lmvx
