// A test child holding known strings in private memory (the child's "memory" verb), with their addresses.
#pragma once
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "child_process.h"
#include "message_pump.h"

namespace memory_test {

class MemoryChild {
public:
    MemoryChild() : file_(NoteFile()), child_(L"memory \"" + file_ + L"\"") {
        lmvx_test::PumpUntil([this] { return ReadAddresses(); }, 20000);
    }
    ~MemoryChild() { DeleteFileW(file_.c_str()); }

    bool Ready() const { return committed_ != 0; }
    unsigned Pid() const { return child_.Pid(); }
    lmvx_test::ChildProcess& Process() { return child_; }
    uint64_t Reserved() const { return reserved_; }      // a reserved (uncommitted) 64 KiB region
    uint64_t Committed() const { return committed_; }    // the committed 64 KiB region right after it
    uint64_t Ascii() const { return committed_ + 0x100; }  // "LumivexAsciiMarker"
    uint64_t Wide() const { return committed_ + 0x300; }   // L"LumivexWideMarker"

private:
    static std::wstring NoteFile() {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        return std::wstring(folder) + L"lmvx_memory_child_" + std::to_wstring(GetCurrentProcessId()) + L".txt";
    }
    bool ReadAddresses() {
        FILE* file = _wfopen(file_.c_str(), L"rb");
        if (!file) return false;
        unsigned long long reserved = 0, committed = 0;
        const bool complete = std::fscanf(file, "%llX %llX", &reserved, &committed) == 2;
        std::fclose(file);
        if (complete) {
            reserved_ = reserved;
            committed_ = committed;
        }
        return complete;
    }

    std::wstring file_;
    lmvx_test::ChildProcess child_;
    uint64_t reserved_ = 0;
    uint64_t committed_ = 0;
};

}  // namespace memory_test
