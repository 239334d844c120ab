// The one SystemProcessInformation query of an update, into a buffer that is kept and grown.
#pragma once
#include "nt_api.h"

#include <vector>

namespace kestrel::detail {

class SystemProcessBuffer {
public:
    // Fills the buffer with the current process entries; false when the query fails.
    bool Query();
    // Calls visit(const nt::SystemProcessEntry&) for each entry of the last successful query.
    template <typename Visit>
    void ForEach(Visit&& visit) const {
        if (!valid_) return;
        size_t offset = 0;
        for (;;) {
            const auto* entry = reinterpret_cast<const nt::SystemProcessEntry*>(buffer_.data() + offset);
            visit(*entry);
            if (entry->NextEntryOffset == 0) break;
            offset += entry->NextEntryOffset;
            if (offset + sizeof(nt::SystemProcessEntry) > buffer_.size()) break;   // malformed: stop
        }
    }

private:
    std::vector<unsigned char> buffer_ = std::vector<unsigned char>(256 * 1024);
    bool valid_ = false;
};

}  // namespace kestrel::detail
