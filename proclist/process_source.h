// What the process list reads per process, by provider item index. The program reads the process-data
// provider through KestrelProcessSource; tests give rows of their own.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include "cell_format.h"
#include "sort_order.h"

namespace proclist {

class ProcessSource {
public:
    virtual ~ProcessSource() = default;

    virtual int GetItemCount() const = 0;
    virtual int GetItemByPid(unsigned pid) const = 0;  // -1 when the process has left the snapshot
    virtual unsigned GetItemPid(int index) const = 0;
    virtual int GetItemImageListIndex(int index) const = 0;
    virtual int GetItemTreeDepth(int index) const = 0;
    virtual ProcessRowValues GetItemRowValues(int index) const = 0;
    // Fills the member of key that field compares.
    virtual void FillSortKey(int index, SortField field, SortKey& key) const = 0;
    virtual HIMAGELIST GetImageList() const = 0;
};

}  // namespace proclist
