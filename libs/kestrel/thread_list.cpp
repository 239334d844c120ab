// PD_THREADLIST: the threads of one process from the system's process query.
#include "thread_list_impl.h"

#include <tlhelp32.h>

#include <algorithm>
#include <cwchar>
#include <unordered_set>

#include "thread_math.h"

namespace kestrel::detail {

namespace {

uint64_t Ticks100ns(const LARGE_INTEGER& value) { return value.QuadPart > 0 ? static_cast<uint64_t>(value.QuadPart) : 0; }

uint64_t NowFileTime() {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return (static_cast<uint64_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
}

}  // namespace

void ThreadListImpl::SwitchProcess(unsigned pid) {
    if (processKnown_ && pid == pid_) return;
    pid_ = pid;
    processKnown_ = true;
    known_.clear();
    modules_.clear();
    previousQueryTime_ = 0;
    process_.Reset(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ, FALSE, pid));
    SYSTEM_INFO system{};
    GetNativeSystemInfo(&system);
    processorCount_ = std::max<unsigned>(1, system.dwNumberOfProcessors);
}

ThreadListImpl::KnownThread ThreadListImpl::ReadNewThread(DWORD threadId, uint64_t creationTime) const {
    KnownThread known;
    known.creationTime = creationTime;
    const auto query = nt::QueryInformationThread();
    UniqueHandle thread(OpenThread(THREAD_QUERY_INFORMATION, FALSE, threadId));
    if (!thread) thread.Reset(OpenThread(THREAD_QUERY_LIMITED_INFORMATION, FALSE, threadId));
    if (!thread || !query) return known;
    void* start = nullptr;
    if (query(thread.Get(), nt::ThreadQuerySetWin32StartAddressClass, &start, sizeof start, nullptr) >= 0) {
        known.startAddress = reinterpret_cast<ULONG_PTR>(start);
    }
    nt::ThreadBasicInfo basic{};
    if (query(thread.Get(), nt::ThreadBasicInformationClass, &basic, sizeof basic, nullptr) >= 0) {
        known.environmentBlock = reinterpret_cast<ULONG_PTR>(basic.TebBaseAddress);
    }
    return known;
}

// The module map is read again when an address falls outside it, at most once per query: a thread
// started in a module loaded since the last read.
const ThreadListImpl::Module* ThreadListImpl::ModuleAt(ULONG_PTR address) {
    if (address == 0) return nullptr;
    const auto find = [&]() -> const Module* {
        for (const Module& module : modules_) {
            if (address >= module.base && address - module.base < module.size) return &module;
        }
        return nullptr;
    };
    if (const Module* module = find()) return module;
    if (modulesReadThisQuery_) return nullptr;
    modulesReadThisQuery_ = true;
    modules_.clear();
    lmvx::UniqueFileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, pid_));
    if (!snapshot) return nullptr;
    MODULEENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Module32FirstW(snapshot.Get(), &entry); more; more = Module32NextW(snapshot.Get(), &entry)) {
        modules_.push_back({reinterpret_cast<ULONG_PTR>(entry.modBaseAddr), entry.modBaseSize, entry.szModule});
    }
    return find();
}

void ThreadListImpl::FillEntry(PD_THREADENTRY& entry, const nt::SystemThreadEntry& thread, long processBasePriority,
                               uint64_t now, uint64_t interval) {
    const DWORD threadId = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(thread.UniqueThread));
    const uint64_t creation = Ticks100ns(thread.CreateTime);
    const uint64_t cpuTime = Ticks100ns(thread.KernelTime) + Ticks100ns(thread.UserTime);
    auto found = known_.find(threadId);
    const bool measured = found != known_.end() && found->second.creationTime == creation;
    if (!measured) found = known_.insert_or_assign(threadId, ReadNewThread(threadId, creation)).first;
    KnownThread& known = found->second;

    entry.threadId_ = threadId;
    entry.priority_ = ThreadPriorityLevel(thread.BasePriority, processBasePriority);
    entry.cpuUsage_ = measured ? ThreadCpuPercent(known.cpuTime, cpuTime, interval, processorCount_) : 0;
    entry.runTime_ = creation != 0 && now > creation ? now - creation : 0;
    entry.averageCpuUsage_ = ThreadCpuPercent(0, cpuTime, entry.runTime_, processorCount_);
    entry.creationTime_ = creation;
    entry.kernelTime_ = Ticks100ns(thread.KernelTime);
    entry.userTime_ = Ticks100ns(thread.UserTime);
    // The system's own start address is the thread routine of the runtime; the Win32 one is the caller's.
    entry.startAddress_ = known.startAddress ? known.startAddress : reinterpret_cast<ULONG_PTR>(thread.StartAddress);
    entry.environmentBlock_ = known.environmentBlock;
    entry.process_ = process_.Get();
    if (const Module* module = ModuleAt(entry.startAddress_)) {
        entry.moduleBase_ = module->base;
        std::wcsncpy(entry.moduleName_, module->name.c_str(), MAX_PATH - 1);
    }
    known.cpuTime = cpuTime;
}

int ThreadListImpl::Query(unsigned pid) {
    SwitchProcess(pid);
    entries_.clear();
    modulesReadThisQuery_ = false;
    if (!buffer_.Query()) return 0;
    const uint64_t now = NowFileTime();
    const uint64_t interval = previousQueryTime_ != 0 && now > previousQueryTime_ ? now - previousQueryTime_ : 0;
    bool found = false;
    buffer_.ForEach([&](const nt::SystemProcessEntry& process) {
        if (found || static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(process.UniqueProcessId)) != pid) return;
        found = true;
        const auto* threads = reinterpret_cast<const nt::SystemThreadEntry*>(&process + 1);
        entries_.resize(process.NumberOfThreads);
        for (ULONG i = 0; i < process.NumberOfThreads; ++i) {
            FillEntry(entries_[i], threads[i], process.BasePriority, now, interval);
        }
    });
    previousQueryTime_ = now;
    // Forget threads that have ended, so that a reused id starts afresh.
    std::unordered_set<DWORD> live;
    for (const PD_THREADENTRY& entry : entries_) live.insert(entry.threadId_);
    std::erase_if(known_, [&](const auto& item) { return !live.contains(item.first); });
    return found ? 1 : 0;
}

}  // namespace kestrel::detail

namespace kestrel {

PD_THREADLIST::~PD_THREADLIST() { delete impl_; }

int PD_THREADLIST::QueryThreadList(unsigned pid) {
    if (!impl_) impl_ = new (std::nothrow) detail::ThreadListImpl;
    return impl_ ? impl_->Query(pid) : 0;
}

unsigned PD_THREADLIST::GetThreadCount() const { return impl_ ? static_cast<unsigned>(impl_->Entries().size()) : 0; }

PD_THREADENTRY* PD_THREADLIST::GetThread(unsigned index) {
    if (!impl_ || index >= impl_->Entries().size()) return nullptr;
    return &impl_->Entries()[index];
}

PD_THREADENTRY* PD_THREADLIST::FindThread(unsigned threadId) {
    if (!impl_) return nullptr;
    auto& entries = impl_->Entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const PD_THREADENTRY& entry) { return entry.GetThreadID() == threadId; });
    return found == entries.end() ? nullptr : &*found;
}

}  // namespace kestrel
