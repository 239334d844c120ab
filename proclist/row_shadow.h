// What the process list last wrote to its list view, row by row: each row's PID, indentation, image and
// cell texts. The refresh compares against this copy instead of asking the control, because while the main
// window is in front the refresh runs on the refresh thread and every question to the control is a
// message to another thread. Values in, values out; no window.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cell_format.h"

namespace proclist {

class RowShadow {
public:
    int Count() const { return static_cast<int>(rows_.size()); }
    unsigned PidAt(int row) const { return rows_[static_cast<size_t>(row)].pid; }
    // The row showing this PID, or -1.
    int FindRow(unsigned pid) const;

    // A row the control has just inserted at this position with this image and first-column text.
    void Insert(int row, unsigned pid, int image, const std::wstring& firstCell);
    void Erase(int row);
    // Forgets everything but these PIDs, in row order: for when the control's rows were changed elsewhere.
    void ResetToPids(const std::vector<unsigned>& pids);

    // Whether writing this text could change the cell: false only when the cell is known to hold it.
    bool IsCellDifferent(int row, int column, const std::wstring& text) const;
    void RecordCell(int row, int column, const std::wstring& text);
    void ForgetCell(int row, int column);

    bool IsIndentDifferent(int row, int indent) const;
    void RecordIndent(int row, int indent);
    bool IsImageDifferent(int row, int image) const;
    void RecordImage(int row, int image);

    // Row i becomes the row that was at order[i]; order must hold every row position once.
    void Permute(const std::vector<int>& order);
    // Puts the rows in the order of these PIDs (the control's order after it sorted itself). Rows whose PID
    // is missing from the list, or a list of another length, reset the copy to the list.
    void Reorder(const std::vector<unsigned>& pidsInOrder);

private:
    struct Row {
        unsigned pid = 0;
        std::optional<int> indent;
        std::optional<int> image;
        std::array<std::optional<std::wstring>, kColumnCount> cells;
    };
    std::vector<Row> rows_;
};

// The order a full sort gives to rows keyed by keys[i], compared by compare(keyA, keyB) as -1/0/1: row
// positions, stably sorted. unique is set to whether no two neighbours compare equal, that is whether any
// correct sort of the same rows would give this very order.
template <typename Key, typename Compare>
std::vector<int> SortedRowOrder(const std::vector<Key>& keys, Compare compare, bool* unique);

}  // namespace proclist

#include "row_shadow_sort.h"
