// The record one open memory viewer shares with its search dialog and the search's progress dialog.
#pragma once
#include <windows.h>

#include <atomic>
#include <cstdint>
#include <string>

#include "common/unique_resource.h"

namespace lmvx {

// Written by one side each (the scan writes the progress, the progress dialog writes cancel), read by the
// other without a lock.
struct MemorySearchState {
    std::atomic<uint32_t> cancel{0};
    std::atomic<uint32_t> currentAddress{0};
    std::atomic<uint32_t> running{0};
    std::atomic<uint32_t> totalBytes{0};
    std::atomic<uint32_t> bytesRead{0};
    std::atomic<HWND> progressDialog{nullptr};
};

struct MemoryViewerContext {
    HWND owner = nullptr;
    HWND dialog = nullptr;
    HWND search = nullptr;  // the open search dialog of this viewer
    unsigned processId = 0;
    uint32_t shownAddress = 0;
    bool symbolPending = false;  // the symbol of shownAddress is still to be looked up
    std::string dumpText;        // the dump of shownAddress ...
    size_t dumpShown = 0;        // ... of which the dump field holds this many characters so far
    MemorySearchState searchState;
    UniqueFont dumpFont;
    UniqueFont addressFont;
};

}  // namespace lmvx
