// The process list's view of the process-data provider.
#pragma once
#include "kestrel.h"
#include "process_source.h"

namespace proclist {

class KestrelProcessSource final : public ProcessSource {
public:
    explicit KestrelProcessSource(const kestrel::TL_PROCESSLIST& provider) : provider_(provider) {}

    int GetItemCount() const override;
    int GetItemByPid(unsigned pid) const override;
    unsigned GetItemPid(int index) const override;
    int GetItemImageListIndex(int index) const override;
    int GetItemTreeDepth(int index) const override;
    ProcessRowValues GetItemRowValues(int index) const override;
    void FillSortKey(int index, SortField field, SortKey& key) const override;
    HIMAGELIST GetImageList() const override;

private:
    const kestrel::TL_PROCESSLIST& provider_;
};

}  // namespace proclist
