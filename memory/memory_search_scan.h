// The memory search's walk over a process: committed private memory read in chunks of 40960 bytes, each
// chunk scanned for printable strings. No windows: the dialog hands in what to do with a result and how
// to keep its windows alive.
#pragma once
#include <windows.h>

#include <cstdint>

#include "memory/memory_viewer_context.h"

namespace lmvx {

constexpr uint32_t kSearchChunkLength = 40960;

struct MemorySearchCallbacks {
    // A kept string at its 32-bit address (zero-terminated text); the callee matches it against its pattern.
    void (*found)(void* context, uint32_t address, const wchar_t* text) = nullptr;
    // Called at the first region step and then at most every 10 ms, before the cancel flag is read (the
    // dialog dispatches its messages).
    void (*pump)(void* context) = nullptr;
    void* context = nullptr;
};

// Sum of the sizes of the committed private regions, walked in 32 bits.
uint32_t CommittedPrivateTotal(HANDLE process);

// Scans the whole 32-bit address space of the process; updates state's progress fields and ends early
// when state.cancel is set. Returns false when the chunk buffer could not be allocated.
bool SearchProcessMemory(HANDLE process, MemorySearchState& state, const MemorySearchCallbacks& callbacks);

}  // namespace lmvx
