// Pane edges of the main window's status bar: values in, values out.
#pragma once
#include <array>

namespace lmvx::perf {

inline constexpr int kStatusBarPaneCount = 6;
using StatusBarEdges = std::array<int, kStatusBarPaneCount>;

enum StatusBarPane : int {
    kPaneProcesses = 0,
    kPaneCpu = 1,
    kPaneMemory = 2,
    kPaneSpare = 3,
    kPaneNotice = 4,
    kPaneFiller = 5,
};

// Right edges when the bar is created (the last pane reaches to the right end, -1).
StatusBarEdges StatusBarCreationEdges();

// Right edges for a bar of the given client width. Narrow bars give the CPU and memory panes 25 pixels;
// above 350 pixels the CPU pane gets 150, above 500 the memory pane 205. Panes 3 (spare icon) and 4
// (notice icon) are 25 pixels each, as at creation.
StatusBarEdges StatusBarLayoutEdges(int clientWidth);

}  // namespace lmvx::perf
