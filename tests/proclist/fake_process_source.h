// Given process rows for the list object, so tests decide every value the list shows and sorts by.
#pragma once
#include <algorithm>
#include <vector>

#include "proclist/process_source.h"

namespace proclist_test {

struct FakeProcess {
    proclist::ProcessRowValues values;
    int imageIndex = 0;
    int treeDepth = 0;
    double treePosition = 0.0;
    unsigned sortGdiObjects = 0;  // the provider's count, which sorting uses
};

class FakeProcessSource final : public proclist::ProcessSource {
public:
    // Item index = position in the vector.
    std::vector<FakeProcess> processes;
    HIMAGELIST imageList = nullptr;

    FakeProcess& Add(unsigned pid, const wchar_t* imageName) {
        FakeProcess process;
        process.values.pid = pid;
        process.values.imageName = imageName;
        processes.push_back(process);
        return processes.back();
    }
    void Remove(unsigned pid) {
        std::erase_if(processes, [pid](const FakeProcess& p) { return p.values.pid == pid; });
    }
    FakeProcess* Find(unsigned pid) {
        const int index = GetItemByPid(pid);
        return index < 0 ? nullptr : &processes[index];
    }

    int GetItemCount() const override { return static_cast<int>(processes.size()); }
    int GetItemByPid(unsigned pid) const override {
        for (size_t i = 0; i < processes.size(); ++i) {
            if (processes[i].values.pid == pid) return static_cast<int>(i);
        }
        return -1;
    }
    unsigned GetItemPid(int index) const override { return processes[index].values.pid; }
    int GetItemImageListIndex(int index) const override { return processes[index].imageIndex; }
    int GetItemTreeDepth(int index) const override { return processes[index].treeDepth; }
    proclist::ProcessRowValues GetItemRowValues(int index) const override { return processes[index].values; }
    void FillSortKey(int index, proclist::SortField field, proclist::SortKey& key) const override {
        using proclist::SortField;
        const FakeProcess& p = processes[index];
        switch (field) {   // the fake's own choice of keys, as the provider's
        case SortField::TreePosition: key.treePosition = p.treePosition; break;
        case SortField::ImageName: key.text = p.values.imageName; break;
        case SortField::CpuUsage: key.counter = p.values.cpuPercent; break;
        case SortField::MemoryUsage: key.counter = p.values.memoryBytes; break;
        case SortField::Description: key.text = p.values.description; break;
        case SortField::CompanyName: key.text = p.values.companyName; break;
        case SortField::PathName: key.text = p.values.pathName; break;
        case SortField::Username: key.text = p.values.username; break;
        case SortField::HandleCount: key.counter = p.values.handleCount; break;
        case SortField::UserObjects: key.counter = p.values.userObjectCount; break;
        case SortField::GdiObjects: key.counter = p.sortGdiObjects; break;
        default: break;
        }
    }
    HIMAGELIST GetImageList() const override { return imageList; }
};

}  // namespace proclist_test
