// One snapshot of all processes, as readers see it. Built by Update() and never changed once published.
#pragma once
#include "kestrel.h"

#include "image_cache.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::detail {

struct DynamicRecord final : _TASKDATADYNAMIC {
    unsigned ioReadDelta = 0, ioWriteDelta = 0, ioOtherDelta = 0;
    uint64_t ioReadBytes = 0, ioWriteBytes = 0, ioOtherBytes = 0;
    uint64_t ioReadOperations = 0, ioWriteOperations = 0, ioOtherOperations = 0;
    uint64_t ioTransferRate = 0;
    unsigned gdiObjects = 0, userObjects = 0;
    unsigned pageFaults = 0;
    unsigned workingSet = 0, workingSetPeak = 0;
    int workingSetDelta = 0;
    unsigned pagefile = 0, pagefilePeak = 0;
    int pagefileDelta = 0;
    unsigned totalMemory = 0, totalMemoryPeak = 0;
    int totalMemoryDelta = 0;
    unsigned privateBytes = 0;
    SYSTEMTIME cpuTime{};
};

// Fixed for the life of one process instance; shared by every snapshot that holds the instance.
struct StaticRecord final : _TASKDATASTATIC {
    std::wstring userName;
    std::wstring commandLine;
    std::wstring imageName;
    std::wstring path;
    SYSTEMTIME creationTime{};          // local time; zero when unknown
    const ImageEntry* image = nullptr;  // never null once built

    const wchar_t* DisplayName() const {
        return image->version.description.empty() ? imageName.c_str() : image->version.description.c_str();
    }
};

struct SnapshotItem {
    unsigned pid = 0;
    unsigned parentPid = 0;
    int depth = 0;
    double treePosition = 0;
    unsigned cpuUsage = 0;
    unsigned handleCount = 0;
    unsigned priorityClass = 0;
    SYSTEMTIME kernelTime{};
    SYSTEMTIME userTime{};
    SYSTEMTIME runTime{};
    std::shared_ptr<StaticRecord> statics;   // never null
    DynamicRecord dynamic;
};

struct Snapshot {
    std::vector<SnapshotItem> items;
    std::vector<std::pair<unsigned, int>> indexByPid;   // sorted by pid

    const SnapshotItem* Item(int i) const {
        return i >= 0 && static_cast<size_t>(i) < items.size() ? &items[static_cast<size_t>(i)] : nullptr;
    }
    int IndexOf(unsigned pid) const;
};

}  // namespace kestrel::detail
