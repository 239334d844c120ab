// The history graph of each process: two series (CPU percent, memory KB) fed once per cycle from the
// provider's current snapshot. Graphs are found by record (current and previous snapshot, as long as
// readers may hold those records) or by process id; a process gone from both snapshots loses its graph.
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "kestrel.h"
#include "wren.h"

namespace kestrel {
namespace {

constexpr unsigned kHistorySpanMs = 180000;
constexpr unsigned kPointIntervalMs = 500;
constexpr unsigned kCpuSeries = 0;
constexpr unsigned kMemorySeries = 1;

// A process instance: its id and its creation time, so a reused id starts a new history.
struct ProcessKey {
    unsigned pid = 0;
    unsigned long long created = 0;
    bool operator<(const ProcessKey& other) const {
        return pid != other.pid ? pid < other.pid : created < other.created;
    }
};

unsigned long long CreationKey(const SYSTEMTIME& time) {
    FILETIME asFileTime{};
    if (!SystemTimeToFileTime(&time, &asFileTime)) return 0;
    return (static_cast<unsigned long long>(asFileTime.dwHighDateTime) << 32) | asFileTime.dwLowDateTime;
}

std::unique_ptr<wren::PERFGRAPH> MakeProcessGraph() {
    auto graph = std::make_unique<wren::PERFGRAPH>();
    graph->Init(kHistorySpanMs, kPointIntervalMs, 2);
    graph->SetRegisterDisplayInfo(wren::HardcodeLangString(L"CPU Usage", L"CPU Auslastung"), L"%", 1, RGB(0, 255, 0),
                                  kCpuSeries);
    graph->SetScaleMax(100, kCpuSeries);
    graph->SetRegisterDisplayInfo(wren::HardcodeLangString(L"Memory", L"Speicher"), L"KB", 1, RGB(255, 255, 0),
                                  kMemorySeries);
    return graph;
}

struct HistoryTable {
    std::mutex lock;
    std::map<ProcessKey, std::unique_ptr<wren::PERFGRAPH>> graphs;
    std::unordered_map<const _TASKDATADYNAMIC*, wren::PERFGRAPH*> byRecord;
    std::unordered_map<const _TASKDATADYNAMIC*, wren::PERFGRAPH*> byPreviousRecord;
    std::unordered_map<unsigned, wren::PERFGRAPH*> byPid;
    std::map<ProcessKey, bool> seenBefore;   // keys of the previous feed
};

HistoryTable& Table() {
    static HistoryTable* const table = new HistoryTable;   // lives until process exit, like the records
    return *table;
}

}  // namespace

int UpdateProcessHistories(const TL_PROCESSLIST& list) {
    const int count = list.GetItemCount();
    if (count <= 0) return 0;
    HistoryTable& table = Table();
    try {
        std::map<ProcessKey, bool> seenNow;
        std::unordered_map<const _TASKDATADYNAMIC*, wren::PERFGRAPH*> byRecord;
        std::unordered_map<unsigned, wren::PERFGRAPH*> byPid;
        const unsigned now = GetTickCount();
        std::lock_guard lock(table.lock);
        for (int i = 0; i < count; ++i) {
            const ProcessKey key{list.GetItemPID(i), CreationKey(list.GetItemCreationTime(i))};
            auto& graph = table.graphs[key];
            if (!graph) graph = MakeProcessGraph();
            const _TASKDATADYNAMIC* record = list.GetItemDynamicData(i);
            graph->SetDataPoint(list.GetItemCPUUsage(i), now, kCpuSeries);
            graph->SetDataPoint(record ? record->GetTotalMemoryBytes() >> 10 : 0, now, kMemorySeries);
            seenNow[key] = true;
            if (record) byRecord[record] = graph.get();
            byPid[key.pid] = graph.get();
        }
        // Readers may still hold records of the previous snapshot: keep those graphs one more feed.
        for (auto it = table.graphs.begin(); it != table.graphs.end();) {
            const bool keep = seenNow.count(it->first) || table.seenBefore.count(it->first);
            it = keep ? std::next(it) : table.graphs.erase(it);
        }
        table.byPreviousRecord = std::move(table.byRecord);
        table.byRecord = std::move(byRecord);
        table.byPid = std::move(byPid);
        table.seenBefore = std::move(seenNow);
    } catch (...) {   // nothing may leave the library
        return 0;
    }
    return 1;
}

wren::PERFGRAPH* GetHistoryGraph(const _TASKDATADYNAMIC* record) {
    if (!record) return nullptr;
    HistoryTable& table = Table();
    std::lock_guard lock(table.lock);
    if (const auto found = table.byRecord.find(record); found != table.byRecord.end()) return found->second;
    if (const auto found = table.byPreviousRecord.find(record); found != table.byPreviousRecord.end()) {
        return found->second;
    }
    return nullptr;
}

wren::PERFGRAPH* GetProcessHistoryGraph(unsigned pid) {
    HistoryTable& table = Table();
    std::lock_guard lock(table.lock);
    const auto found = table.byPid.find(pid);
    return found != table.byPid.end() ? found->second : nullptr;
}

}  // namespace kestrel
