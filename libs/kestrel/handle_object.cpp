// _HANDLEOBJECT: one handle of a remote process, and closing it there.
#include "platform/kestrel.h"

#include "handle_nt_api.h"
#include "handle_object.h"
#include "process_control_query.h"

namespace kestrel::detail {

void LoadCounts(HandleObjectData& data) {
    if (data.countsKnown) return;
    data.countsKnown = true;
    const auto query = nt::QueryObject();
    UniqueHandle process = data.pid ? OpenLiveProcess(data.pid, PROCESS_DUP_HANDLE) : UniqueHandle();
    UniqueHandle object;
    if (!query || !process ||
        !DuplicateHandle(process.Get(), reinterpret_cast<HANDLE>(data.value), GetCurrentProcess(), object.Put(), 0,
                         FALSE, DUPLICATE_SAME_ACCESS))
        return;
    nt::ObjectBasicInfo info{};
    if (query(object.Get(), nt::ObjectBasicInformationClass, &info, sizeof info, nullptr) < 0) return;
    data.referenceCount = info.PointerCount;   // as the system gives it, our copy's reference included
    data.pagedPoolQuota = info.PagedPoolCharge;
    data.nonPagedPoolQuota = info.NonPagedPoolCharge;
}

}  // namespace kestrel::detail

namespace kestrel {

using detail::HandleObjectData;

_HANDLEOBJECT::_HANDLEOBJECT() : data_(new HandleObjectData) {}
_HANDLEOBJECT::~_HANDLEOBJECT() { delete data_; }
_HANDLEOBJECT::_HANDLEOBJECT(const _HANDLEOBJECT& other) : data_(new HandleObjectData(*other.data_)) {}
_HANDLEOBJECT& _HANDLEOBJECT::operator=(const _HANDLEOBJECT& other) {
    if (this != &other) *data_ = *other.data_;
    return *this;
}

void* _HANDLEOBJECT::GetRemoteHandle() const { return reinterpret_cast<void*>(data_->value); }
const wchar_t* _HANDLEOBJECT::GetObjectTypeStr() const { return data_->type.c_str(); }
const wchar_t* _HANDLEOBJECT::GetObjectName() const { return data_->name.c_str(); }
const wchar_t* _HANDLEOBJECT::GetObjectPrintStr() const { return data_->print.c_str(); }
unsigned long _HANDLEOBJECT::GetReferenceCount() const { return detail::LoadCounts(*data_), data_->referenceCount; }
unsigned long _HANDLEOBJECT::GetDesiredAccess() const { return data_->grantedAccess; }
unsigned long _HANDLEOBJECT::GetPagedPoolQuota() const { return detail::LoadCounts(*data_), data_->pagedPoolQuota; }
unsigned long _HANDLEOBJECT::GetNonPagedPoolQuota() const {
    return detail::LoadCounts(*data_), data_->nonPagedPoolQuota;
}
int _HANDLEOBJECT::IsDosFile() const { return data_->dosFile ? 1 : 0; }

int _HANDLEOBJECT::CloseRemoteHandle() const {
    if (data_->pid == 0) return 0;
    detail::UniqueHandle process = detail::OpenLiveProcess(data_->pid, PROCESS_DUP_HANDLE);
    if (!process) return 0;
    // Duplicating with DUPLICATE_CLOSE_SOURCE closes the handle inside the owner; our copy goes at once.
    detail::UniqueHandle local;
    return DuplicateHandle(process.Get(), reinterpret_cast<HANDLE>(data_->value), GetCurrentProcess(), local.Put(), 0,
                           FALSE, DUPLICATE_CLOSE_SOURCE | DUPLICATE_SAME_ACCESS)
               ? 1
               : 0;
}

}  // namespace kestrel
