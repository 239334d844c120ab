#include "process_list_impl.h"

#include "latest_process_count.h"
#include "process_math.h"
#include "process_tree.h"

#include <algorithm>

namespace kestrel::detail {

namespace {

uint64_t Value(const LARGE_INTEGER& value) { return static_cast<uint64_t>(value.QuadPart); }

FILETIME ToFileTime(uint64_t value) {
    return FILETIME{static_cast<DWORD>(value), static_cast<DWORD>(value >> 32)};
}

SYSTEMTIME LocalTimeOf(uint64_t utc100ns) {
    SYSTEMTIME time{};
    if (utc100ns == 0) return time;   // unknown (the system's own processes)
    FILETIME utc = ToFileTime(utc100ns);
    FILETIME local{};
    if (!FileTimeToLocalFileTime(&utc, &local) || !FileTimeToSystemTime(&local, &time)) time = SYSTEMTIME{};
    return time;
}

uint64_t SystemTimeNow() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return (static_cast<uint64_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
}

std::wstring ImageNameOf(const nt::SystemProcessEntry& entry) {
    if (entry.ImageName.Buffer && entry.ImageName.Length)
        return std::wstring(entry.ImageName.Buffer, entry.ImageName.Length / sizeof(wchar_t));
    // The idle process has no image; this is the name the system's own tools give it.
    return entry.UniqueProcessId == nullptr ? L"System Idle Process" : L"";
}

unsigned PidOf(HANDLE id) { return static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(id)); }

}  // namespace

bool ProcessListImpl::Init() {
    SYSTEM_INFO system{};
    GetSystemInfo(&system);
    processorCount_ = std::max<unsigned>(1, system.dwNumberOfProcessors);
    current_.store(std::make_shared<const Snapshot>());
    return images_.Init() && nt::QuerySystemInformation() && nt::QueryInformationProcess();
}

bool ProcessListImpl::Update() {
    const auto now = std::chrono::steady_clock::now();
    if (!buffer_.Query()) return false;
    const bool firstUpdate = updateCount_.load() == 0;
    const uint64_t interval100ns =
        firstUpdate ? 0 : static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(now - lastUpdate_).count()) * 10;
    lastUpdate_ = now;
    const unsigned update = updateCount_.load() + 1;
    const uint64_t systemNow = SystemTimeNow();

    auto next = std::make_shared<Snapshot>();
    std::vector<uint64_t> createTimes;
    buffer_.ForEach([&](const nt::SystemProcessEntry& entry) {
        Instance& instance = FindOrAdd(entry);
        instance.seenInUpdate = update;
        next->items.push_back(MakeItem(entry, instance, interval100ns, systemNow));
        createTimes.push_back(Value(entry.CreateTime));
    });
    PlaceInTree(*next, createTimes);
    PublishProcessCount(static_cast<unsigned>(next->items.size()));

    next->indexByPid.reserve(next->items.size());
    for (size_t i = 0; i < next->items.size(); ++i) next->indexByPid.emplace_back(next->items[i].pid, static_cast<int>(i));
    std::sort(next->indexByPid.begin(), next->indexByPid.end());

    retired_ = current_.exchange(std::move(next));
    updateCount_.store(update);
    ForgetEndedInstances();
    return true;
}

ProcessListImpl::Instance& ProcessListImpl::FindOrAdd(const nt::SystemProcessEntry& entry) {
    const InstanceKey key{PidOf(entry.UniqueProcessId), Value(entry.CreateTime)};
    auto found = instances_.find(key);
    if (found != instances_.end()) {
        // A process caught while it is being created has no image name yet, and nothing else can be read
        // of it: its fixed data is read again once the name is there.
        if (found->second.statics->imageName.empty() && entry.ImageName.Length != 0) {
            found->second.process = OpenProcessInstance(key.pid, key.createTime);
            found->second.statics = LoadStatics(entry, found->second.process.Get());
        }
        return found->second;
    }
    Instance instance;
    instance.process = OpenProcessInstance(key.pid, key.createTime);
    instance.statics = LoadStatics(entry, instance.process.Get());
    return instances_.emplace(key, std::move(instance)).first->second;
}

std::shared_ptr<StaticRecord> ProcessListImpl::LoadStatics(const nt::SystemProcessEntry& entry, HANDLE process) {
    auto statics = std::make_shared<StaticRecord>();
    statics->imageName = ImageNameOf(entry);
    statics->creationTime = LocalTimeOf(Value(entry.CreateTime));
    if (process) {
        statics->path = ReadImagePath(process);
        statics->commandLine = ReadCommandLine(process);
        statics->userName = accounts_.OwnerOf(process);
    }
    statics->image = images_.Lookup(statics->path);
    return statics;
}

SnapshotItem ProcessListImpl::MakeItem(const nt::SystemProcessEntry& entry, Instance& instance,
                                       uint64_t interval100ns, uint64_t now) {
    SnapshotItem item;
    item.pid = PidOf(entry.UniqueProcessId);
    item.parentPid = PidOf(entry.InheritedFromUniqueProcessId);
    item.handleCount = entry.HandleCount;
    item.priorityClass = PriorityClassOf(entry, instance);
    item.kernelTime = PackDuration(Value(entry.KernelTime));
    item.userTime = PackDuration(Value(entry.UserTime));
    const uint64_t created = Value(entry.CreateTime);
    item.runTime = PackDuration(created != 0 && now > created ? now - created : 0);
    item.statics = instance.statics;

    const uint64_t cpuTime = Value(entry.KernelTime) + Value(entry.UserTime);
    item.cpuUsage = instance.measured ? CpuUsagePercent(instance.cpuTime, cpuTime, interval100ns, processorCount_) : 0;
    FillDynamic(entry, instance, interval100ns / 10000, item.dynamic);

    instance.cpuTime = cpuTime;
    instance.measured = true;
    return item;
}

unsigned ProcessListImpl::PriorityClassOf(const nt::SystemProcessEntry& entry, Instance& instance) {
    if (entry.BasePriority != instance.basePriority) {
        // The base priority follows the class, but not every system reports it on the same scale: ask the
        // process itself, once per change, and read the base priority only for processes we cannot open.
        instance.basePriority = entry.BasePriority;
        instance.priorityClass = instance.process ? GetPriorityClass(instance.process.Get()) : 0;
        if (instance.priorityClass == 0) instance.priorityClass = PriorityClassFromBasePriority(entry.BasePriority);
    }
    return instance.priorityClass;
}

void ProcessListImpl::FillDynamic(const nt::SystemProcessEntry& entry, Instance& instance, uint64_t intervalMs,
                                  DynamicRecord& dynamic) const {
    dynamic.ioReadBytes = Value(entry.ReadTransferCount);
    dynamic.ioWriteBytes = Value(entry.WriteTransferCount);
    dynamic.ioOtherBytes = Value(entry.OtherTransferCount);
    dynamic.ioReadOperations = Value(entry.ReadOperationCount);
    dynamic.ioWriteOperations = Value(entry.WriteOperationCount);
    dynamic.ioOtherOperations = Value(entry.OtherOperationCount);
    const uint64_t workingSet = entry.WorkingSetSize;
    const uint64_t pagefile = entry.PagefileUsage;
    if (instance.measured) {
        dynamic.ioReadDelta = CounterDelta(instance.ioReadBytes, dynamic.ioReadBytes);
        dynamic.ioWriteDelta = CounterDelta(instance.ioWriteBytes, dynamic.ioWriteBytes);
        dynamic.ioOtherDelta = CounterDelta(instance.ioOtherBytes, dynamic.ioOtherBytes);
        dynamic.ioTransferRate = RatePerSecond(
            uint64_t{dynamic.ioReadDelta} + dynamic.ioWriteDelta + dynamic.ioOtherDelta, intervalMs);
        dynamic.workingSetDelta = SignedDelta(instance.workingSet, workingSet);
        dynamic.pagefileDelta = SignedDelta(instance.pagefile, pagefile);
        dynamic.totalMemoryDelta = SignedDelta(instance.workingSet + instance.pagefile, workingSet + pagefile);
    }
    instance.ioReadBytes = dynamic.ioReadBytes;
    instance.ioWriteBytes = dynamic.ioWriteBytes;
    instance.ioOtherBytes = dynamic.ioOtherBytes;
    instance.workingSet = workingSet;
    instance.pagefile = pagefile;

    dynamic.pageFaults = entry.PageFaultCount;
    dynamic.workingSet = Saturate32(workingSet);
    dynamic.workingSetPeak = Saturate32(entry.PeakWorkingSetSize);
    dynamic.pagefile = Saturate32(pagefile);
    dynamic.pagefilePeak = Saturate32(entry.PeakPagefileUsage);
    dynamic.totalMemory = Saturate32(workingSet + pagefile);
    dynamic.totalMemoryPeak = Saturate32(uint64_t{entry.PeakWorkingSetSize} + entry.PeakPagefileUsage);
    dynamic.cpuTime = PackDuration(Value(entry.KernelTime) + Value(entry.UserTime));

    // Private bytes are the commit charge, which the page-file usage of the same entry also reports; some
    // systems leave the private page count empty. Asking each process for its own memory counters instead
    // would cost more than the whole process list query.
    dynamic.privateBytes = Saturate32(entry.PrivatePageCount != 0 ? entry.PrivatePageCount : entry.PagefileUsage);
    if (instance.process) {
        dynamic.gdiObjects = GetGuiResources(instance.process.Get(), GR_GDIOBJECTS);
        dynamic.userObjects = GetGuiResources(instance.process.Get(), GR_USEROBJECTS);
    }
}

void ProcessListImpl::PlaceInTree(Snapshot& snapshot, const std::vector<uint64_t>& createTimes) {
    std::vector<TreeNode> nodes;
    nodes.reserve(snapshot.items.size());
    for (size_t i = 0; i < snapshot.items.size(); ++i)
        nodes.push_back(TreeNode{snapshot.items[i].pid, snapshot.items[i].parentPid, createTimes[i]});
    const std::vector<TreePlace> places = BuildTree(nodes);
    for (size_t i = 0; i < places.size(); ++i) {
        snapshot.items[i].depth = places[i].depth;
        snapshot.items[i].treePosition = places[i].position;
    }
}

void ProcessListImpl::ForgetEndedInstances() {
    const unsigned update = updateCount_.load();
    std::erase_if(instances_, [update](const auto& entry) { return entry.second.seenInUpdate != update; });
}

}  // namespace kestrel::detail
