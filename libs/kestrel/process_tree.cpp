#include "process_tree.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace kestrel::detail {

namespace {

constexpr size_t NoParent = static_cast<size_t>(-1);

std::vector<size_t> FindParents(const std::vector<TreeNode>& nodes) {
    std::unordered_map<uint32_t, size_t> indexByPid;
    indexByPid.reserve(nodes.size());
    for (size_t i = 0; i < nodes.size(); ++i) indexByPid.emplace(nodes[i].pid, i);
    std::vector<size_t> parents(nodes.size(), NoParent);
    for (size_t i = 0; i < nodes.size(); ++i) {
        const auto found = indexByPid.find(nodes[i].parentPid);
        if (found == indexByPid.end() || found->second == i) continue;
        if (nodes[found->second].createTime > nodes[i].createTime) continue;
        parents[i] = found->second;
    }
    return parents;
}

}  // namespace

std::vector<TreePlace> BuildTree(const std::vector<TreeNode>& nodes) {
    const size_t count = nodes.size();
    std::vector<size_t> parents = FindParents(nodes);

    std::vector<size_t> order(count);
    std::iota(order.begin(), order.end(), size_t{0});
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) {
        if (nodes[a].createTime != nodes[b].createTime) return nodes[a].createTime < nodes[b].createTime;
        return nodes[a].pid < nodes[b].pid;
    });

    // Children lists in walk order: filled from the sorted order, so each list is already sorted.
    std::vector<std::vector<size_t>> children(count);
    for (size_t node : order) {
        if (parents[node] != NoParent) children[parents[node]].push_back(node);
    }

    std::vector<TreePlace> places(count);
    std::vector<bool> placed(count, false);
    double nextPosition = 0;
    std::vector<std::pair<size_t, int>> stack;   // node, depth; explicit so deep chains cannot overflow

    auto walkFrom = [&](size_t root) {
        stack.emplace_back(root, 0);
        while (!stack.empty()) {
            const auto [node, depth] = stack.back();
            stack.pop_back();
            if (placed[node]) continue;
            placed[node] = true;
            places[node] = TreePlace{depth, nextPosition++};
            for (auto child = children[node].rbegin(); child != children[node].rend(); ++child) {
                if (!placed[*child]) stack.emplace_back(*child, depth + 1);
            }
        }
    };

    for (size_t node : order) {
        if (parents[node] == NoParent) walkFrom(node);
    }
    // Whatever is left hangs on a cycle of parent links; creation times can only tie within one.
    for (size_t node : order) {
        if (!placed[node]) walkFrom(node);
    }
    return places;
}

}  // namespace kestrel::detail
