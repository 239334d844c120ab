// Ordering of process-list rows: the key each sort mode compares and the comparison itself.
// Values in, -1/0/1 out; text is compared through a function passed in (the program passes the
// default-locale CompareStringW comparison, see text_compare.h).
#pragma once
#include <string>

namespace proclist {

// Sort modes as stored in TaskListSortMode. Values 13 and above are kept as they are and compare
// every pair as equal.
enum SortMode : unsigned {
    kSortStartOrder = 0,
    kSortProcessTree = 1,
    kSortProcessName = 2,
    kSortCpuUsage = 3,
    kSortMemoryUsage = 4,
    kSortDescription = 5,
    kSortCompanyName = 6,
    kSortPathName = 7,
    kSortProcessId = 8,
    kSortUsername = 9,
    kSortHandleCount = 10,
    kSortUserObjects = 11,
    kSortGdiObjects = 12,
};
constexpr unsigned kSortModeCount = 13;
constexpr unsigned kDefaultSortMode = kSortProcessTree;

// Which value of a process a mode compares.
enum class SortField {
    ItemIndex,     // provider item index (start order)
    TreePosition,  // depth-first position in the parent tree
    ImageName,
    CpuUsage,
    MemoryUsage,
    Description,
    CompanyName,
    PathName,
    ProcessId,
    Username,
    HandleCount,
    UserObjects,
    GdiObjects,
    None,  // unknown mode: nothing is compared
};

SortField SortFieldOfMode(unsigned mode);
bool IsTextField(SortField field);
bool IsCounterField(SortField field);

// The compared values of one row; only the members of the mode's field are meaningful.
struct SortKey {
    int itemIndex = -1;  // -1 when the process has left the snapshot
    unsigned pid = 0;
    double treePosition = 0.0;
    unsigned counter = 0;
    std::wstring text;
};

// Returns <0, 0 or >0 like CompareStringW's CSTR_LESS_THAN/EQUAL/GREATER_THAN minus 2; 0 also on failure.
using TextComparer = int (*)(const std::wstring& a, const std::wstring& b);

// -1: a belongs before b, 1: after b, 0: no order between them. The reverse flag flips the sign.
int CompareSortKeys(unsigned mode, bool reverse, const SortKey& a, const SortKey& b, TextComparer compareText);

}  // namespace proclist
