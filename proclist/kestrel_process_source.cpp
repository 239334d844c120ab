#include "kestrel_process_source.h"

namespace proclist {
namespace {

std::wstring Text(const wchar_t* text) {
    return text ? std::wstring(text) : std::wstring();
}

}  // namespace

int KestrelProcessSource::GetItemCount() const {
    return provider_.GetItemCount();
}

int KestrelProcessSource::GetItemByPid(unsigned pid) const {
    return provider_.GetItemByPID(pid);
}

unsigned KestrelProcessSource::GetItemPid(int index) const {
    return provider_.GetItemPID(index);
}

int KestrelProcessSource::GetItemImageListIndex(int index) const {
    return provider_.GetItemImageListIndex(index);
}

int KestrelProcessSource::GetItemTreeDepth(int index) const {
    return provider_.GetItemParentCount(index, 0);
}

ProcessRowValues KestrelProcessSource::GetItemRowValues(int index) const {
    ProcessRowValues row;
    row.imageName = Text(provider_.GetItemImageName(index));
    row.cpuPercent = provider_.GetItemCPUUsage(index);
    row.memoryBytes = provider_.GetItemRAMUsage(index);
    row.description = Text(provider_.GetItemInfoDescription(index));
    row.companyName = Text(provider_.GetItemInfoCompanyName(index));
    row.pathName = Text(provider_.GetItemPathName(index));
    row.pid = provider_.GetItemPID(index);
    row.creationTime = provider_.GetItemCreationTime(index);
    row.handleCount = provider_.GetItemHandleCount(index);
    row.userObjectCount = provider_.GetItemUserObjectCount(index);
    if (const kestrel::_TASKDATADYNAMIC* dynamic = provider_.GetItemDynamicData(index)) {
        row.ioDeltaBytes = SumIoDeltas(dynamic->GetIOReadTransferDelta(), dynamic->GetIOWriteTransferDelta(),
                                       dynamic->GetIOOtherTransferDelta());
        // The GDI cell shows the dynamic record's count; sorting uses the provider's (see FillSortKey).
        row.gdiObjectCount = dynamic->GetGDIObjectCount();
    }
    if (const kestrel::_TASKDATASTATIC* statics = provider_.GetItemStaticData(index)) {
        row.username = Text(statics->GetUsername());
    }
    return row;
}

void KestrelProcessSource::FillSortKey(int index, SortField field, SortKey& key) const {
    switch (field) {
    case SortField::TreePosition: key.treePosition = provider_.GetItemTreePos(index, 0); break;
    case SortField::ImageName: key.text = Text(provider_.GetItemImageName(index)); break;
    case SortField::CpuUsage: key.counter = provider_.GetItemCPUUsage(index); break;
    case SortField::MemoryUsage: key.counter = provider_.GetItemRAMUsage(index); break;
    case SortField::Description: key.text = Text(provider_.GetItemInfoDescription(index)); break;
    case SortField::CompanyName: key.text = Text(provider_.GetItemInfoCompanyName(index)); break;
    case SortField::PathName: key.text = Text(provider_.GetItemPathName(index)); break;
    case SortField::Username: {
        const kestrel::_TASKDATASTATIC* statics = provider_.GetItemStaticData(index);
        key.text = statics ? Text(statics->GetUsername()) : std::wstring();
        break;
    }
    case SortField::HandleCount: key.counter = provider_.GetItemHandleCount(index); break;
    case SortField::UserObjects: key.counter = provider_.GetItemUserObjectCount(index); break;
    case SortField::GdiObjects: key.counter = provider_.GetItemGDIObjectCount(index); break;
    case SortField::ItemIndex:
    case SortField::ProcessId:
    case SortField::None: break;  // taken from the row itself
    }
}

HIMAGELIST KestrelProcessSource::GetImageList() const {
    return provider_.GetImageList();
}

}  // namespace proclist
