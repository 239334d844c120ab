#include "sort_order.h"

namespace proclist {
namespace {

int Apply(bool reverse, int result) {
    return reverse ? -result : result;
}

int Ascending(unsigned a, unsigned b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

}  // namespace

SortField SortFieldOfMode(unsigned mode) {
    switch (mode) {
    case kSortStartOrder: return SortField::ItemIndex;
    case kSortProcessTree: return SortField::TreePosition;
    case kSortProcessName: return SortField::ImageName;
    case kSortCpuUsage: return SortField::CpuUsage;
    case kSortMemoryUsage: return SortField::MemoryUsage;
    case kSortDescription: return SortField::Description;
    case kSortCompanyName: return SortField::CompanyName;
    case kSortPathName: return SortField::PathName;
    case kSortProcessId: return SortField::ProcessId;
    case kSortUsername: return SortField::Username;
    case kSortHandleCount: return SortField::HandleCount;
    case kSortUserObjects: return SortField::UserObjects;
    case kSortGdiObjects: return SortField::GdiObjects;
    default: return SortField::None;
    }
}

bool IsTextField(SortField field) {
    return field == SortField::ImageName || field == SortField::Description || field == SortField::CompanyName ||
           field == SortField::PathName || field == SortField::Username;
}

bool IsCounterField(SortField field) {
    return field == SortField::CpuUsage || field == SortField::MemoryUsage || field == SortField::HandleCount ||
           field == SortField::UserObjects || field == SortField::GdiObjects;
}

int CompareSortKeys(unsigned mode, bool reverse, const SortKey& a, const SortKey& b, TextComparer compareText) {
    const SortField field = SortFieldOfMode(mode);
    if (field == SortField::ItemIndex) {
        // Intended: start order shows the higher provider index (the later process) first by default.
        const int result = a.itemIndex > b.itemIndex ? -1 : (a.itemIndex < b.itemIndex ? 1 : 0);
        return Apply(reverse, result);
    }
    if (field == SortField::TreePosition) {
        const int result = a.treePosition > b.treePosition ? 1 : (b.treePosition > a.treePosition ? -1 : 0);
        return Apply(reverse, result);
    }
    if (field == SortField::ProcessId) {
        return Apply(reverse, Ascending(a.pid, b.pid));
    }
    if (IsCounterField(field)) {
        // Largest first: the busiest processes lead the list.
        return Apply(reverse, -Ascending(a.counter, b.counter));
    }
    if (IsTextField(field)) {
        const int order = compareText != nullptr ? compareText(a.text, b.text) : 0;
        return Apply(reverse, order < 0 ? -1 : (order > 0 ? 1 : 0));
    }
    return 0;  // unknown mode: every pair is equal, so the list is never re-sorted
}

}  // namespace proclist
