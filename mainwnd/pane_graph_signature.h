// A fingerprint of what a history graph would draw: its series, their scale tops and every kept point.
// The details pane repaints its small graph only when this changes, which at fast refresh rates spares
// four repaints in five (a point is added every 500 ms).
#pragma once
#include <cstdint>

#include "wren.h"

namespace lmvx {

// 0 for no graph.
uint64_t PaneGraphSignature(const wren::PERFGRAPH* graph);

}  // namespace lmvx
