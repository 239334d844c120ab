// The thirteen columns of the process list, in data index order.
#pragma once
#include <array>

#include "cell_format.h"

namespace proclist {

enum class ColumnAlignment : int { Left = 0, Right = 1 };  // as UIP_ListViewAddColumn takes it

struct ColumnSpec {
    unsigned headerStringId;  // 0: the header is the fixed text pair "I/O" / "E/A"
    int width;                // pixels
    ColumnAlignment alignment;
};

enum ColumnIndex : int {
    kColumnProcess = 0,
    kColumnCpuUsage = 1,
    kColumnIo = 2,
    kColumnMemoryUsage = 3,
    kColumnDescription = 4,
    kColumnCompanyName = 5,
    kColumnPathName = 6,
    kColumnProcessId = 7,
    kColumnStartTime = 8,
    kColumnUsername = 9,
    kColumnHandles = 10,
    kColumnUserObjects = 11,
    kColumnGdiObjects = 12,
};

const std::array<ColumnSpec, kColumnCount>& ProcessListColumns();

// TaskListColumns holds the display order as 13 signed 32-bit column indexes; any other size is ignored.
constexpr unsigned kColumnOrderBytes = kColumnCount * sizeof(int);

}  // namespace proclist
