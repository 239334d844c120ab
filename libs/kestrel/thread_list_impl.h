// The working state behind PD_THREADLIST: the kept query buffer, what is known of each thread between
// queries, and the module map of the process for naming start addresses.
#pragma once
#include "kestrel.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "nt_api.h"
#include "system_process_buffer.h"
#include "unique_resource.h"

namespace kestrel::detail {

class ThreadListImpl {
public:
    int Query(unsigned pid);
    std::vector<PD_THREADENTRY>& Entries() { return entries_; }

private:
    // What is read once per thread and kept while it lives.
    struct KnownThread {
        uint64_t creationTime = 0;   // tells a reused thread id apart
        ULONG_PTR startAddress = 0;
        ULONG_PTR environmentBlock = 0;
        uint64_t cpuTime = 0;        // kernel plus user at the previous query
    };
    struct Module {
        ULONG_PTR base = 0;
        ULONG_PTR size = 0;
        std::wstring name;
    };

    void SwitchProcess(unsigned pid);
    KnownThread ReadNewThread(DWORD threadId, uint64_t creationTime) const;
    const Module* ModuleAt(ULONG_PTR address);
    void FillEntry(PD_THREADENTRY& entry, const nt::SystemThreadEntry& thread, long processBasePriority,
                   uint64_t now, uint64_t interval);

    SystemProcessBuffer buffer_;
    unsigned pid_ = 0;
    bool processKnown_ = false;
    UniqueHandle process_;   // for reading the threads' environment blocks; may be null
    std::unordered_map<DWORD, KnownThread> known_;
    std::vector<Module> modules_;
    bool modulesReadThisQuery_ = false;
    uint64_t previousQueryTime_ = 0;
    unsigned processorCount_ = 1;
    std::vector<PD_THREADENTRY> entries_;
};

}  // namespace kestrel::detail
