#include "perf/status_bar_layout.h"

namespace lmvx::perf {

namespace {
constexpr int kIconPaneWidth = 25;
}

StatusBarEdges StatusBarCreationEdges() {
    return {100, 250, 450, 450 + kIconPaneWidth, 450 + 2 * kIconPaneWidth, -1};
}

StatusBarEdges StatusBarLayoutEdges(int clientWidth) {
    StatusBarEdges edges{};
    edges[kPaneProcesses] = clientWidth > 200 ? 100 : 50;
    edges[kPaneCpu] = edges[kPaneProcesses] + (clientWidth > 350 ? 150 : 25);
    edges[kPaneMemory] = edges[kPaneCpu] + (clientWidth > 500 ? 205 : 25);
    edges[kPaneSpare] = edges[kPaneMemory] + kIconPaneWidth;
    edges[kPaneNotice] = edges[kPaneSpare] + kIconPaneWidth;
    edges[kPaneFiller] = -1;
    return edges;
}

}  // namespace lmvx::perf
