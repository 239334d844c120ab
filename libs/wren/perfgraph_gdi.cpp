#include "perfgraph_gdi.h"

#include <atomic>

#include "wren.h"

namespace wren {
namespace {
std::atomic<long> liveObjects{0};
std::atomic<long> freeFailures{0};
}  // namespace

namespace detail {
void NoteGdiObjectCreated() { ++liveObjects; }
void NoteGdiObjectFreed(bool freed) {
    --liveObjects;
    if (!freed) ++freeFailures;
}
}  // namespace detail

long GetPerfGraphGdiObjectCount() { return liveObjects.load(); }
long GetPerfGraphGdiFreeFailures() { return freeFailures.load(); }

}  // namespace wren
