// TL_PROCESSLIST: the exported face of the provider. Every reader pins the current snapshot for the length
// of its call, so a switch in Update() on another thread never frees what it is reading.
#include "kestrel.h"

#include "process_list_impl.h"

#include <new>

namespace kestrel {

namespace {

using detail::SnapshotItem;

const wchar_t* const EmptyText = L"";

template <typename Result, typename Read>
Result ReadItem(const detail::ProcessListImpl* impl, int i, Result fallback, Read read) {
    if (!impl) return fallback;
    const auto snapshot = impl->Current();
    const SnapshotItem* item = snapshot ? snapshot->Item(i) : nullptr;
    return item ? read(*item) : fallback;
}

}  // namespace

int TL_PROCESSLIST::Init() {
    if (impl_) return 1;
    try {
        auto impl = new detail::ProcessListImpl;
        if (!impl->Init()) {
            delete impl;
            return 0;
        }
        impl_ = impl;
        return 1;
    } catch (...) {   // nothing may cross the library's boundary
        return 0;
    }
}

int TL_PROCESSLIST::Delete() {
    if (!impl_) return 0;
    delete impl_;
    impl_ = nullptr;
    return 1;
}

int TL_PROCESSLIST::Update() {
    if (!impl_) return 0;
    try {
        return impl_->Update() ? 1 : 0;
    } catch (...) {   // out of memory: keep the last snapshot
        return 0;
    }
}

int TL_PROCESSLIST::SetUpdateInterval(unsigned milliseconds) {
    if (!impl_) return 0;
    impl_->SetUpdateInterval(milliseconds);
    return 1;
}

unsigned TL_PROCESSLIST::GetUpdateCount() const { return impl_ ? impl_->UpdateCount() : 0; }

int TL_PROCESSLIST::GetItemCount() const {
    if (!impl_) return 0;
    const auto snapshot = impl_->Current();
    return snapshot ? static_cast<int>(snapshot->items.size()) : 0;
}

int TL_PROCESSLIST::GetItemByPID(unsigned pid) const {
    if (!impl_) return -1;
    const auto snapshot = impl_->Current();
    return snapshot ? snapshot->IndexOf(pid) : -1;
}

unsigned TL_PROCESSLIST::GetItemPID(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.pid; });
}

unsigned TL_PROCESSLIST::GetItemParentPID(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.parentPid; });
}

int TL_PROCESSLIST::GetItemParentCount(int i, unsigned) const {
    return ReadItem(impl_, i, 0, [](const SnapshotItem& item) { return item.depth; });
}

double TL_PROCESSLIST::GetItemTreePos(int i, unsigned) const {
    return ReadItem(impl_, i, 0.0, [](const SnapshotItem& item) { return item.treePosition; });
}

unsigned TL_PROCESSLIST::GetItemCPUUsage(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.cpuUsage; });
}

unsigned TL_PROCESSLIST::GetItemRAMUsage(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.dynamic.workingSet; });
}

unsigned TL_PROCESSLIST::GetItemHandleCount(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.handleCount; });
}

unsigned TL_PROCESSLIST::GetItemGDIObjectCount(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.dynamic.gdiObjects; });
}

unsigned TL_PROCESSLIST::GetItemUserObjectCount(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.dynamic.userObjects; });
}

unsigned TL_PROCESSLIST::GetItemProcessPriority(int i) const {
    return ReadItem(impl_, i, 0u, [](const SnapshotItem& item) { return item.priorityClass; });
}

SYSTEMTIME TL_PROCESSLIST::GetItemCreationTime(int i) const {
    return ReadItem(impl_, i, SYSTEMTIME{}, [](const SnapshotItem& item) { return item.statics->creationTime; });
}

SYSTEMTIME TL_PROCESSLIST::GetItemKernelTime(int i) const {
    return ReadItem(impl_, i, SYSTEMTIME{}, [](const SnapshotItem& item) { return item.kernelTime; });
}

SYSTEMTIME TL_PROCESSLIST::GetItemUserTime(int i) const {
    return ReadItem(impl_, i, SYSTEMTIME{}, [](const SnapshotItem& item) { return item.userTime; });
}

SYSTEMTIME TL_PROCESSLIST::GetItemRuntime(int i) const {
    return ReadItem(impl_, i, SYSTEMTIME{}, [](const SnapshotItem& item) { return item.runTime; });
}

const wchar_t* TL_PROCESSLIST::GetItemImageName(int i) const {
    return ReadItem(impl_, i, EmptyText, [](const SnapshotItem& item) { return item.statics->imageName.c_str(); });
}

const wchar_t* TL_PROCESSLIST::GetItemDisplayName(int i) const {
    return ReadItem(impl_, i, EmptyText, [](const SnapshotItem& item) { return item.statics->DisplayName(); });
}

const wchar_t* TL_PROCESSLIST::GetItemPathName(int i) const {
    return ReadItem(impl_, i, EmptyText, [](const SnapshotItem& item) { return item.statics->path.c_str(); });
}

const wchar_t* TL_PROCESSLIST::GetItemInfoDescription(int i) const {
    return ReadItem(impl_, i, EmptyText,
                    [](const SnapshotItem& item) { return item.statics->image->version.description.c_str(); });
}

const wchar_t* TL_PROCESSLIST::GetItemInfoCompanyName(int i) const {
    return ReadItem(impl_, i, EmptyText,
                    [](const SnapshotItem& item) { return item.statics->image->version.companyName.c_str(); });
}

const wchar_t* TL_PROCESSLIST::GetItemInfoProductName(int i) const {
    return ReadItem(impl_, i, EmptyText,
                    [](const SnapshotItem& item) { return item.statics->image->version.productName.c_str(); });
}

const wchar_t* TL_PROCESSLIST::GetItemInfoFileVersion(int i) const {
    return ReadItem(impl_, i, EmptyText,
                    [](const SnapshotItem& item) { return item.statics->image->version.fileVersion.c_str(); });
}

const wchar_t* TL_PROCESSLIST::GetItemInfoCopyright(int i) const {
    return ReadItem(impl_, i, EmptyText,
                    [](const SnapshotItem& item) { return item.statics->image->version.copyright.c_str(); });
}

HICON TL_PROCESSLIST::GetItemIcon(int i) const {
    return ReadItem(impl_, i, HICON{}, [](const SnapshotItem& item) { return item.statics->image->largeIcon; });
}

HICON TL_PROCESSLIST::GetItemIconSmall(int i) const {
    return ReadItem(impl_, i, HICON{}, [](const SnapshotItem& item) { return item.statics->image->smallIcon; });
}

int TL_PROCESSLIST::GetItemImageListIndex(int i) const {
    return ReadItem(impl_, i, -1, [](const SnapshotItem& item) { return item.statics->image->imageListIndex; });
}

HIMAGELIST TL_PROCESSLIST::GetImageList() const { return impl_ ? impl_->ImageList() : nullptr; }

_TASKDATADYNAMIC* TL_PROCESSLIST::GetItemDynamicData(int i) const {
    // Handed out non-const as the program expects; snapshots are never changed after their switch.
    return ReadItem(impl_, i, static_cast<_TASKDATADYNAMIC*>(nullptr), [](const SnapshotItem& item) {
        return static_cast<_TASKDATADYNAMIC*>(const_cast<detail::DynamicRecord*>(&item.dynamic));
    });
}

_TASKDATASTATIC* TL_PROCESSLIST::GetItemStaticData(int i) const {
    return ReadItem(impl_, i, static_cast<_TASKDATASTATIC*>(nullptr),
                    [](const SnapshotItem& item) { return static_cast<_TASKDATASTATIC*>(item.statics.get()); });
}

}  // namespace kestrel
