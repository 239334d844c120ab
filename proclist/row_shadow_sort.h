// The sort helper of row_shadow.h, a template and so in a header.
#pragma once
#include <algorithm>
#include <numeric>
#include <vector>

namespace proclist {

template <typename Key, typename Compare>
std::vector<int> SortedRowOrder(const std::vector<Key>& keys, Compare compare, bool* unique) {
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return compare(keys[static_cast<size_t>(a)], keys[static_cast<size_t>(b)]) < 0; });
    *unique = true;
    for (size_t i = 1; i < order.size(); ++i) {
        if (compare(keys[static_cast<size_t>(order[i - 1])], keys[static_cast<size_t>(order[i])]) == 0) {
            *unique = false;
            break;
        }
    }
    return order;
}

}  // namespace proclist
