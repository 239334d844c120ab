// Tree depth and depth-first position from (pid, parent pid, creation time).
#include "process_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using namespace kestrel::detail;

TEST(BuildTree, PlacesEachNodeOnceDepthFirstWithDistinctRanks) {
    struct Case {
        const char* what;
        std::vector<TreeNode> nodes;
        std::vector<uint32_t> walk;   // pids in the order of their positions
        std::vector<int> depths;      // in the order of the nodes
    };
    const Case cases[] = {
        {"children under their parents", {{30, 10, 300}, {10, 0, 100}, {20, 0, 200}, {40, 30, 400}, {50, 10, 500}},
         {10, 30, 40, 50, 20}, {1, 0, 0, 2, 1}},
        // Pid 10 ended and was reused by a process started after 20: 20 is a root.
        {"a parent created after its child", {{10, 0, 900}, {20, 10, 200}}, {20, 10}, {0, 0}},
        {"a missing parent makes a root", {{20, 999, 200}, {30, 20, 300}}, {20, 30}, {0, 1}},
        {"a self parent is a root", {{0, 0, 0}, {4, 0, 0}, {8, 4, 5}}, {0, 4, 8}, {0, 1, 2}},
        {"a cycle is cut", {{1, 3, 7}, {2, 1, 7}, {3, 2, 7}, {9, 0, 1}}, {9, 1, 2, 3}, {0, 1, 2, 0}},
        {"siblings by creation time, then pid", {{1, 0, 1}, {7, 1, 50}, {5, 1, 50}, {3, 1, 20}}, {1, 3, 5, 7},
         {0, 1, 1, 1}},
        {"empty", {}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const std::vector<TreePlace> places = BuildTree(c.nodes);
        ASSERT_EQ(places.size(), c.nodes.size());
        std::vector<size_t> order(c.nodes.size());
        std::iota(order.begin(), order.end(), size_t{0});
        std::sort(order.begin(), order.end(), [&](size_t a, size_t b) { return places[a].position < places[b].position; });
        std::vector<uint32_t> walk;
        std::vector<int> depths;
        for (size_t i = 0; i < order.size(); ++i) {
            walk.push_back(c.nodes[order[i]].pid);
            EXPECT_EQ(places[order[i]].position, static_cast<double>(i)) << "positions are the ranks 0, 1, 2, ...";
            depths.push_back(places[i].depth);
        }
        EXPECT_EQ(walk, c.walk);
        EXPECT_EQ(depths, c.depths);
    }
}

TEST(BuildTree, ADeepChainNeedsNoRecursion) {
    std::vector<TreeNode> nodes;
    const uint32_t length = 100000;
    for (uint32_t pid = 1; pid <= length; ++pid) nodes.push_back({pid, pid - 1, pid});
    EXPECT_EQ(BuildTree(nodes).back().depth, static_cast<int>(length - 1));
}
