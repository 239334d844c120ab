// _HANDLELIST: the handles of one process with their types and names, read again at each query.
#include "platform/kestrel.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "dos_path.h"
#include "handle_nt_api.h"
#include "handle_object.h"
#include "handle_table.h"
#include "name_query_worker.h"
#include "process_control_query.h"

namespace kestrel::detail {

namespace {

// Long enough for any name query that is not held up on a loaded machine, short enough that a blocked
// handle costs the caller little (and only once: the next queries skip it until its query has returned).
constexpr DWORD kFileNameTimeoutMs = 100;

std::vector<DriveDevice> CurrentDriveDevices() {
    std::vector<DriveDevice> drives;
    const DWORD mask = GetLogicalDrives();
    for (int letter = 0; letter < 26; ++letter) {
        if (!(mask & (1u << letter))) continue;
        const wchar_t drive[3] = {static_cast<wchar_t>(L'A' + letter), L':', 0};
        wchar_t device[MAX_PATH];
        if (QueryDosDeviceW(drive, device, MAX_PATH)) drives.push_back({drive, device});
    }
    return drives;
}

bool QueryTypeName(HANDLE object, std::wstring& type) {
    const auto query = nt::QueryObject();
    alignas(8) unsigned char buffer[1024];
    ULONG needed = 0;
    if (!query || query(object, nt::ObjectTypeInformationClass, buffer, sizeof buffer, &needed) < 0) return false;
    const auto* text = reinterpret_cast<const UNICODE_STRING*>(buffer);
    type.assign(text->Buffer ? text->Buffer : L"", text->Length / sizeof(wchar_t));
    return true;
}

std::wstring FileNameOf(const std::wstring& path) {
    const size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

// "app.exe (1234)": processes have no object name, but users know them by image and id.
std::wstring ProcessDisplayName(DWORD pid, HANDLE process) {
    if (pid == 0) return {};
    wchar_t image[MAX_PATH];
    DWORD length = MAX_PATH;
    std::wstring shown = QueryFullProcessImageNameW(process, 0, image, &length) ? FileNameOf(image) + L" " : L"";
    return shown + L"(" + std::to_wstring(pid) + L")";
}

}  // namespace

struct HandleListState {
    std::vector<_HANDLEOBJECT> entries;
    QueryBuffer buffer;
    std::vector<RawHandle> raw;
    std::unordered_map<ULONG, std::wstring> typeNames;   // by the system's type index
    std::vector<DriveDevice> drives;   // read again at each query that names a file
    bool drivesRead = false;
    NameQueryWorker worker;
    unsigned lastPid = 0;   // the process of the last query
    // File handles whose name query did not return, with that query: skipped until it has returned.
    std::unordered_map<ULONG_PTR, std::shared_ptr<NameQueryJob>> blocked;
    // Entries of the last query of this process by handle value, for handles that are still the same.
    std::unordered_map<ULONG_PTR, size_t> lastByValue;

    void Query(unsigned pid, HANDLE process);

private:
    bool TakeFromLastQuery(const RawHandle& handle, std::vector<_HANDLEOBJECT>& last, HandleObjectData& data);
    void Describe(const RawHandle& handle, HANDLE process, HandleObjectData& data);
    std::wstring TypeOf(const RawHandle& handle, HANDLE object);
    void NameFile(ULONG_PTR value, UniqueHandle object, HandleObjectData& data);
    void ForgetFinishedBlocks(unsigned pid);
};

std::wstring HandleListState::TypeOf(const RawHandle& handle, HANDLE object) {
    if (handle.typeIndex != 0) {
        const auto known = typeNames.find(handle.typeIndex);
        if (known != typeNames.end()) return known->second;
    }
    std::wstring type;
    if (object && QueryTypeName(object, type) && handle.typeIndex != 0) typeNames.emplace(handle.typeIndex, type);
    return type;
}

void HandleListState::NameFile(ULONG_PTR value, UniqueHandle object, HandleObjectData& data) {
    if (blocked.contains(value)) return;
    std::shared_ptr<NameQueryJob> stuck;
    const auto outcome = worker.Query(object.Release(), kFileNameTimeoutMs, data.name, stuck);
    if (outcome == NameQueryWorker::Outcome::TimedOut) {
        blocked.emplace(value, std::move(stuck));
        data.name.clear();
        return;
    }
    if (!drivesRead) {
        drives = CurrentDriveDevices();
        drivesRead = true;
    }
    data.print = NativeToDosPath(data.name, drives);
    data.dosFile = IsDrivePath(data.print);
}

// What a handle costs: with its type known by its index, a thread handle costs nothing (threads have no
// names); any other one a duplication, a name query (two round trips to Wine's server) and a close. The
// counts wait until they are read (LoadCounts).
void HandleListState::Describe(const RawHandle& handle, HANDLE process, HandleObjectData& data) {
    const auto known = handle.typeIndex != 0 ? typeNames.find(handle.typeIndex) : typeNames.end();
    if (known != typeNames.end() && known->second == L"Thread") {
        data.type = known->second;
        return;
    }
    UniqueHandle object;
    DuplicateHandle(process, reinterpret_cast<HANDLE>(handle.value), GetCurrentProcess(), object.Put(), 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    data.type = TypeOf(handle, object.Get());
    if (!object) return;
    if (data.type == L"File") {
        NameFile(handle.value, std::move(object), data);
    } else if (data.type == L"Process") {
        data.print = ProcessDisplayName(GetProcessId(object.Get()), object.Get());
    } else if (data.type != L"Thread" && QueryObjectName(object.Get(), data.name)) {
        data.print = data.type == L"Key" ? RegistryDisplayPath(data.name) : data.name;
    }
}

void HandleListState::ForgetFinishedBlocks(unsigned pid) {
    if (pid != lastPid) {
        blocked.clear();
        lastPid = pid;
    }
    std::erase_if(blocked, [](auto& entry) { return QueryFinished(*entry.second); });
}

// Describing thousands of handles takes seconds under Wine (see Describe). A handle with the same value, type
// and access as at the last query of the process is taken as the same object and keeps its description
// (counts included, once read). File handles are always described again: their names change when files are
// renamed, and they are few.
bool HandleListState::TakeFromLastQuery(const RawHandle& handle, std::vector<_HANDLEOBJECT>& last,
                                        HandleObjectData& data) {
    if (handle.typeIndex == 0) return false;
    const auto type = typeNames.find(handle.typeIndex);
    if (type == typeNames.end() || type->second == L"File") return false;
    const auto found = lastByValue.find(handle.value);
    if (found == lastByValue.end()) return false;
    HandleObjectData& before = *last[found->second].Data();
    if (before.typeIndex != handle.typeIndex || before.grantedAccess != handle.grantedAccess) return false;
    data = std::move(before);
    return true;
}

void HandleListState::Query(unsigned pid, HANDLE process) {
    if (pid != lastPid) lastByValue.clear();
    ForgetFinishedBlocks(pid);
    drivesRead = false;
    std::vector<_HANDLEOBJECT> last = std::move(entries);
    entries = std::vector<_HANDLEOBJECT>(raw.size());
    for (size_t i = 0; i < raw.size(); ++i) {
        HandleObjectData& data = *entries[i].Data();
        if (TakeFromLastQuery(raw[i], last, data)) continue;
        data.pid = pid;
        data.value = raw[i].value;
        data.typeIndex = raw[i].typeIndex;
        data.grantedAccess = raw[i].grantedAccess;
        Describe(raw[i], process, data);
    }
    lastByValue.clear();
    for (size_t i = 0; i < entries.size(); ++i) lastByValue.emplace(entries[i].Data()->value, i);
}

}  // namespace kestrel::detail

namespace kestrel {

int _HANDLELIST::Init() {
    if (!state_) state_ = new (std::nothrow) detail::HandleListState;
    return state_ ? 1 : 0;
}

int _HANDLELIST::Delete() {
    delete std::exchange(state_, nullptr);
    return 1;
}

int _HANDLELIST::QueryHandlesProcess(unsigned long pid) {
    if (!state_ && !Init()) return 0;
    detail::UniqueHandle process = detail::OpenLiveProcess(pid, PROCESS_DUP_HANDLE | PROCESS_QUERY_LIMITED_INFORMATION);
    if (!process || !detail::ReadHandleTable(process.Get(), pid, state_->buffer, state_->raw)) {
        state_->entries.clear();
        state_->lastByValue.clear();
        return 0;
    }
    state_->Query(pid, process.Get());
    return 1;
}

unsigned long _HANDLELIST::GetHandleCount() const { return state_ ? static_cast<unsigned long>(state_->entries.size()) : 0; }

_HANDLEOBJECT _HANDLELIST::GetHandle(unsigned index) const {
    const _HANDLEOBJECT* entry = GetHandlePtr(index);
    return entry ? *entry : _HANDLEOBJECT();
}

_HANDLEOBJECT* _HANDLELIST::GetHandlePtr(unsigned index) const {
    return state_ && index < state_->entries.size() ? &state_->entries[index] : nullptr;
}

}  // namespace kestrel
