// The refresh passes the handle lists share, written over any row container so that they can be tested on
// plain vectors: rows are identified by their item parameter (the handle value).
#pragma once
#include <functional>

namespace lmvx::kobj {

// What a pass needs of a list: its row count, the parameter of a row, and deleting a row.
struct RowAccess {
    std::function<int()> count;
    std::function<unsigned(int row)> parameter;
    std::function<void(int row)> erase;
};

// Deletes every row for which vanished(parameter) is true; returns how many were deleted.
// skipAfterDelete: the Kernel Objects dialog's pass, which moves on after a deletion and so skips the row
// that moved up into the freed position (that row goes at a later refresh at the earliest). Intended: the
// dialog has always removed rows this way. Without it every row is examined (the pages' pass).
template <typename Vanished>
int RemoveVanishedRows(const RowAccess& rows, bool skipAfterDelete, Vanished vanished) {
    int deleted = 0;
    for (int row = 0; row < rows.count();) {
        if (vanished(rows.parameter(row))) {
            rows.erase(row);
            ++deleted;
            if (!skipAfterDelete) continue;
        }
        ++row;
    }
    return deleted;
}

// Returns the first row whose pair (row, row + 1) is out of order (compare(row, row + 1) > 0), checking
// (0,1) up to (count - 3, count - 2); -1 when none is. Intended economy: the last pair is never checked,
// so lists of one or two rows are never re-sorted by the refresh.
template <typename ComparePair>
int FindRowOutOfOrder(int count, ComparePair compare) {
    for (int row = 0; row < count - 2; ++row) {
        if (compare(row, row + 1) > 0) return row;
    }
    return -1;
}

}  // namespace lmvx::kobj
