// The walk over the options tree: from an item to its first child, else its next sibling, else up to the
// nearest ancestor's next sibling. It visits at most kTreeWalkLimit items, so a runaway tree cannot hang
// the dialog.
#pragma once
#include <cstddef>

namespace lmvx {

inline constexpr std::size_t kTreeWalkLimit = 512;

// Tree is any type with FirstChild(item), NextSibling(item) and Parent(item), each returning a null item
// when there is none. Calls visit(item) for every item reached from root; returns how many were visited.
template <typename Tree, typename Item, typename Visit>
std::size_t WalkTree(const Tree& tree, Item root, Visit visit) {
    std::size_t visited = 0;
    for (Item item = root; item && visited < kTreeWalkLimit; ++visited) {
        visit(item);
        Item next = tree.FirstChild(item);
        for (Item up = item; !next && up; up = tree.Parent(up)) next = tree.NextSibling(up);
        item = next;
    }
    return visited;
}

}  // namespace lmvx
