// The options tree walk, the Tray Icon page's enabling rule and the replacement path rules.
#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "app/taskmgr_replacement_rules.h"
#include "options/tray_page_rules.h"
#include "options/tree_walk.h"

namespace {

// Items are positive numbers, 0 is "none"; the maps hold each item's links.
struct FakeTree {
    std::map<int, int> firstChild, nextSibling, parent;
    void Add(int up, int child, int previous = 0) {
        (previous ? nextSibling[previous] : firstChild[up]) = child;
        parent[child] = up;
    }
    static int Get(const std::map<int, int>& links, int item) { return links.contains(item) ? links.at(item) : 0; }
    int FirstChild(int item) const { return Get(firstChild, item); }
    int NextSibling(int item) const { return Get(nextSibling, item); }
    int Parent(int item) const { return Get(parent, item); }
};

TEST(OptionsTreeWalk, GoesDepthFirstClimbsBackToTheNextSiblingAndStopsAfter512Items) {
    FakeTree tree;
    tree.Add(1, 2);
    tree.Add(1, 3, 2);
    tree.Add(3, 5);
    tree.Add(5, 6);
    tree.Add(1, 4, 3);
    std::vector<int> order;
    EXPECT_EQ(lmvx::WalkTree(tree, 1, [&](int item) { order.push_back(item); }), 6u);
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3, 5, 6, 4}));

    FakeTree wide;
    for (int child = 2; child <= 700; ++child) wide.Add(1, child, child == 2 ? 0 : child - 1);
    int last = 0;
    EXPECT_EQ(lmvx::WalkTree(wide, 1, [&](int item) { last = item; }), 512u);
    EXPECT_EQ(last, 512);
}

TEST(TrayPageRule, HideFollowsTheTrayBoxAndTheGraphContentBoxesStayDisabled) {
    for (bool tray : {false, true}) {
        const lmvx::TrayPageEnabling enabling = lmvx::TrayPageEnablingFor(tray, true);
        EXPECT_EQ(enabling.hideWhenMinimized, tray);
        EXPECT_FALSE(enabling.graphParts) << "the parts need an enabled, checked graph box";
    }
}

TEST(ReplacementPath, Windows2000RefusesFrom47CharactersAndEqualityIgnoresLetterCaseOnly) {
    EXPECT_FALSE(lmvx::QuotedPathTooLongForWindows2000(46)) << "47 is refused, one stricter than the warning says, on purpose";
    EXPECT_TRUE(lmvx::QuotedPathTooLongForWindows2000(48));
    const wchar_t* own = L"\"C:\\Program Files\\Lumivex\\lmvx64.exe\"";
    EXPECT_FALSE(lmvx::IsSameReplacementPath(own, L"C:\\Program Files\\Lumivex\\lmvx64.exe"));
    EXPECT_FALSE(lmvx::IsSameReplacementPath(own, L"\"C:\\Program Files\\Lumivex\\lmvx64.exe\" "));
}

}  // namespace
