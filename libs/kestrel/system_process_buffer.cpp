#include "system_process_buffer.h"

namespace kestrel::detail {

bool SystemProcessBuffer::Query() {
    valid_ = false;
    const auto query = nt::QuerySystemInformation();
    if (!query) return false;
    // Processes can start between the size answer and the next call: retry a few times with room to spare.
    for (int attempt = 0; attempt < 8; ++attempt) {
        ULONG needed = 0;
        const NTSTATUS status = query(nt::SystemProcessInformationClass, buffer_.data(),
                                      static_cast<ULONG>(buffer_.size()), &needed);
        if (status == nt::StatusSuccess) {
            valid_ = needed >= sizeof(nt::SystemProcessEntry) || needed == 0;
            return valid_;
        }
        if (status != nt::StatusInfoLengthMismatch && status != nt::StatusBufferTooSmall) return false;
        const size_t grown = needed > buffer_.size() ? needed + needed / 4 : buffer_.size() * 2;
        buffer_.assign(grown, 0);
    }
    return false;
}

}  // namespace kestrel::detail
