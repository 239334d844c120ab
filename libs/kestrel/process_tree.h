// Tree position and depth of every process from the parent relation: pure logic, tested directly.
#pragma once
#include <cstdint>
#include <vector>

namespace kestrel::detail {

struct TreeNode {
    uint32_t pid = 0;
    uint32_t parentPid = 0;
    uint64_t createTime = 0;   // 100 ns units; orders siblings and rules out parents created later
};

struct TreePlace {
    int depth = 0;          // 0 for a root
    double position = 0;    // rank in the depth-first walk, 0 first
};

// One place per node, in the order of the nodes. A node's parent is the node whose pid is its parentPid,
// unless that is the node itself or was created after it (the parent then ended and its pid was reused):
// such a node is a root. Roots and siblings are walked by creation time, then pid. Parent links that
// form a cycle are cut at the first node of the cycle met in that order, which becomes a root.
std::vector<TreePlace> BuildTree(const std::vector<TreeNode>& nodes);

}  // namespace kestrel::detail
