// Whether the list needs a full sort: the refresh compares neighbouring rows only.
#pragma once

namespace proclist {

// Checks the pairs (0,1), (1,2), ... up to (rowCount - 3, rowCount - 2) and returns the first row whose
// pair compares as 1 (first row belongs after the second), or -1 when none does.
// Intended economy: the last pair is never checked, so a list of one or two rows is never re-sorted here.
template <typename ComparePair>
int FindMisplacedPair(int rowCount, ComparePair comparePair) {
    const int lastChecked = rowCount - 2;
    for (int row = 0; row < lastChecked; ++row) {
        if (comparePair(row, row + 1) == 1) return row;
    }
    return -1;
}

}  // namespace proclist
