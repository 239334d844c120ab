// The provider behind TL_PROCESSLIST: one writer (Update) builds the next snapshot from one
// SystemProcessInformation buffer and publishes it; readers pin the snapshot they read.
#pragma once
#include "image_cache.h"
#include "process_static.h"
#include "snapshot.h"
#include "system_process_buffer.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <unordered_map>

namespace kestrel::detail {

class ProcessListImpl {
public:
    bool Init();
    bool Update();
    void SetUpdateInterval(unsigned milliseconds) { updateInterval_.store(milliseconds); }
    unsigned UpdateCount() const { return updateCount_.load(); }
    std::shared_ptr<const Snapshot> Current() const { return current_.load(); }
    HIMAGELIST ImageList() const { return images_.ImageList(); }

private:
    // A process instance: a pid is reused, a pid with its creation time is not.
    struct InstanceKey {
        unsigned pid;
        uint64_t createTime;
        bool operator==(const InstanceKey&) const = default;
    };
    struct InstanceKeyHash {
        size_t operator()(const InstanceKey& key) const {
            return std::hash<uint64_t>()(key.createTime * 1000003u ^ key.pid);
        }
    };
    // What the provider remembers about an instance between updates.
    struct Instance {
        std::shared_ptr<StaticRecord> statics;
        UniqueHandle process;   // kept for the per-update counters that need one; closed when the instance leaves
        uint64_t cpuTime = 0;
        uint64_t ioReadBytes = 0, ioWriteBytes = 0, ioOtherBytes = 0;
        uint64_t workingSet = 0, pagefile = 0;
        long basePriority = -1;         // as last seen in the process list
        unsigned priorityClass = 0;     // read again only when the base priority changes
        bool measured = false;      // the counters above hold a previous update's values
        unsigned seenInUpdate = 0;
    };

    Instance& FindOrAdd(const nt::SystemProcessEntry& entry);
    std::shared_ptr<StaticRecord> LoadStatics(const nt::SystemProcessEntry& entry, HANDLE process);
    SnapshotItem MakeItem(const nt::SystemProcessEntry& entry, Instance& instance, uint64_t interval100ns,
                          uint64_t now);
    static unsigned PriorityClassOf(const nt::SystemProcessEntry& entry, Instance& instance);
    void FillDynamic(const nt::SystemProcessEntry& entry, Instance& instance, uint64_t intervalMs,
                     DynamicRecord& dynamic) const;
    static void PlaceInTree(Snapshot& snapshot, const std::vector<uint64_t>& createTimes);
    void ForgetEndedInstances();

    SystemProcessBuffer buffer_;
    ImageCache images_;
    AccountNames accounts_;
    std::unordered_map<InstanceKey, Instance, InstanceKeyHash> instances_;
    std::atomic<std::shared_ptr<const Snapshot>> current_;
    // The snapshot before the current one stays alive until the next switch: a reader that fetched its
    // strings just before a switch can still use them.
    std::shared_ptr<const Snapshot> retired_;
    std::atomic<unsigned> updateInterval_{1000};
    std::atomic<unsigned> updateCount_{0};
    std::chrono::steady_clock::time_point lastUpdate_{};
    unsigned processorCount_ = 1;
};

}  // namespace kestrel::detail
