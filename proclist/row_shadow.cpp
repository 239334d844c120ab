#include "row_shadow.h"

#include <algorithm>
#include <unordered_map>

namespace proclist {

int RowShadow::FindRow(unsigned pid) const {
    for (size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].pid == pid) return static_cast<int>(row);
    }
    return -1;
}

void RowShadow::Insert(int row, unsigned pid, int image, const std::wstring& firstCell) {
    Row inserted;
    inserted.pid = pid;
    inserted.indent = 0;  // a new item has no indentation
    inserted.image = image;
    inserted.cells[0] = firstCell;
    for (int column = 1; column < kColumnCount; ++column) inserted.cells[static_cast<size_t>(column)] = std::wstring();
    const size_t at = std::min(static_cast<size_t>(row < 0 ? 0 : row), rows_.size());
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(at), std::move(inserted));
}

void RowShadow::Erase(int row) {
    if (row < 0 || row >= Count()) return;
    rows_.erase(rows_.begin() + row);
}

void RowShadow::ResetToPids(const std::vector<unsigned>& pids) {
    rows_.assign(pids.size(), Row{});
    for (size_t row = 0; row < pids.size(); ++row) rows_[row].pid = pids[row];
}

bool RowShadow::IsCellDifferent(int row, int column, const std::wstring& text) const {
    const auto& cell = rows_[static_cast<size_t>(row)].cells[static_cast<size_t>(column)];
    return !cell || *cell != text;
}

void RowShadow::RecordCell(int row, int column, const std::wstring& text) {
    rows_[static_cast<size_t>(row)].cells[static_cast<size_t>(column)] = text;
}

void RowShadow::ForgetCell(int row, int column) {
    rows_[static_cast<size_t>(row)].cells[static_cast<size_t>(column)].reset();
}

bool RowShadow::IsIndentDifferent(int row, int indent) const {
    const auto& known = rows_[static_cast<size_t>(row)].indent;
    return !known || *known != indent;
}

void RowShadow::RecordIndent(int row, int indent) {
    rows_[static_cast<size_t>(row)].indent = indent;
}

bool RowShadow::IsImageDifferent(int row, int image) const {
    const auto& known = rows_[static_cast<size_t>(row)].image;
    return !known || *known != image;
}

void RowShadow::RecordImage(int row, int image) {
    rows_[static_cast<size_t>(row)].image = image;
}

void RowShadow::Permute(const std::vector<int>& order) {
    if (order.size() != rows_.size()) return;
    std::vector<Row> previous = std::move(rows_);
    rows_.clear();
    rows_.reserve(previous.size());
    for (int from : order) rows_.push_back(std::move(previous[static_cast<size_t>(from)]));
}

void RowShadow::Reorder(const std::vector<unsigned>& pidsInOrder) {
    if (pidsInOrder.size() != rows_.size()) {
        ResetToPids(pidsInOrder);
        return;
    }
    std::unordered_map<unsigned, size_t> rowOfPid;
    for (size_t row = 0; row < rows_.size(); ++row) rowOfPid.emplace(rows_[row].pid, row);
    std::vector<Row> reordered;
    reordered.reserve(rows_.size());
    std::vector<bool> taken(rows_.size(), false);
    for (unsigned pid : pidsInOrder) {
        const auto found = rowOfPid.find(pid);
        if (found == rowOfPid.end() || taken[found->second]) {
            ResetToPids(pidsInOrder);
            return;
        }
        taken[found->second] = true;
        reordered.push_back(std::move(rows_[found->second]));
    }
    rows_ = std::move(reordered);
}

}  // namespace proclist
