// Tree depth and depth-first position from (pid, parent pid, creation time).
#include "process_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using namespace kestrel::detail;

namespace {

// The pids of the nodes in the order of their tree positions.
std::vector<uint32_t> WalkOrder(const std::vector<TreeNode>& nodes, const std::vector<TreePlace>& places) {
    std::vector<size_t> order(nodes.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) { return places[a].position < places[b].position; });
    std::vector<uint32_t> pids;
    for (size_t i : order) pids.push_back(nodes[i].pid);
    return pids;
}

}  // namespace

TEST(BuildTree, PlacesChildrenUnderTheirParentsDepthFirst) {
    const std::vector<TreeNode> nodes = {
        {30, 10, 300}, {10, 0, 100}, {20, 0, 200}, {40, 30, 400}, {50, 10, 500},
    };
    const auto places = BuildTree(nodes);
    EXPECT_EQ(WalkOrder(nodes, places), (std::vector<uint32_t>{10, 30, 40, 50, 20}));
    EXPECT_EQ(places[1].depth, 0);   // 10
    EXPECT_EQ(places[0].depth, 1);   // 30
    EXPECT_EQ(places[3].depth, 2);   // 40
    EXPECT_EQ(places[4].depth, 1);   // 50
    EXPECT_EQ(places[2].depth, 0);   // 20
}

TEST(BuildTree, PositionsAreDistinctRanks) {
    const std::vector<TreeNode> nodes = {{1, 0, 1}, {2, 1, 2}, {3, 1, 3}, {4, 0, 4}};
    const auto places = BuildTree(nodes);
    std::vector<double> positions;
    for (const TreePlace& place : places) positions.push_back(place.position);
    std::sort(positions.begin(), positions.end());
    EXPECT_EQ(positions, (std::vector<double>{0, 1, 2, 3}));
}

TEST(BuildTree, AParentCreatedAfterItsChildIsNotItsParent) {
    // Pid 10 ended and was reused by a process started after 20: 20 is a root.
    const std::vector<TreeNode> nodes = {{10, 0, 900}, {20, 10, 200}};
    const auto places = BuildTree(nodes);
    EXPECT_EQ(places[1].depth, 0);
    EXPECT_EQ(WalkOrder(nodes, places), (std::vector<uint32_t>{20, 10}));
}

TEST(BuildTree, AMissingParentMakesARoot) {
    const std::vector<TreeNode> nodes = {{20, 999, 200}, {30, 20, 300}};
    const auto places = BuildTree(nodes);
    EXPECT_EQ(places[0].depth, 0);
    EXPECT_EQ(places[1].depth, 1);
}

TEST(BuildTree, ASelfParentIsARoot) {
    const std::vector<TreeNode> nodes = {{0, 0, 0}, {4, 0, 0}, {8, 4, 5}};
    const auto places = BuildTree(nodes);
    EXPECT_EQ(places[0].depth, 0);
    EXPECT_EQ(places[1].depth, 1);
    EXPECT_EQ(places[2].depth, 2);
}

TEST(BuildTree, ACycleOfParentsIsCutAndEveryNodePlacedOnce) {
    const std::vector<TreeNode> nodes = {{1, 3, 7}, {2, 1, 7}, {3, 2, 7}, {9, 0, 1}};
    const auto places = BuildTree(nodes);
    EXPECT_EQ(WalkOrder(nodes, places), (std::vector<uint32_t>{9, 1, 2, 3}));
    EXPECT_EQ(places[0].depth, 0);
    EXPECT_EQ(places[1].depth, 1);
    EXPECT_EQ(places[2].depth, 2);
}

TEST(BuildTree, SiblingsFollowCreationTimeThenPid) {
    const std::vector<TreeNode> nodes = {{1, 0, 1}, {7, 1, 50}, {5, 1, 50}, {3, 1, 20}};
    EXPECT_EQ(WalkOrder(nodes, BuildTree(nodes)), (std::vector<uint32_t>{1, 3, 5, 7}));
}

TEST(BuildTree, ADeepChainNeedsNoRecursion) {
    std::vector<TreeNode> nodes;
    const uint32_t length = 100000;
    for (uint32_t pid = 1; pid <= length; ++pid) nodes.push_back({pid, pid - 1, pid});
    const auto places = BuildTree(nodes);
    EXPECT_EQ(places.back().depth, static_cast<int>(length - 1));
}

TEST(BuildTree, AnEmptyListGivesNoPlaces) {
    EXPECT_TRUE(BuildTree({}).empty());
}
