// A test child with four known threads: one burns CPU, one is suspended, one is blocked in a known
// function of the child (BlockedInChildWait), one owns a visible window titled "Lumivex test thread window".
// The child also loads version.dll for the test.
#pragma once
#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>

#include "child_process.h"
#include "message_pump.h"
#include "test_files.h"

namespace lmvx_test {

struct KnownThreads {
    std::unique_ptr<ChildProcess> child;
    DWORD burning = 0;
    DWORD suspended = 0;
    DWORD blocked = 0;
    DWORD windowed = 0;

    bool Started() const { return child && child->Started() && windowed != 0; }

    // Starts the child and waits until it has written the ids of its threads (the file may be seen before it
    // can be opened, so it is read until all four are there).
    static KnownThreads Start() {
        KnownThreads t;
        const std::wstring file = TestTempFolder() + L"lmvx_known_threads_" + std::to_wstring(GetCurrentProcessId()) +
                                  L"_" + std::to_wstring(GetTickCount()) + L".txt";
        t.child = std::make_unique<ChildProcess>(L"known-threads \"" + file + L"\" 600000");
        PumpUntil([&] {
            return swscanf(ReadWholeFile(file).c_str(), L"%lu %lu %lu %lu", &t.burning, &t.suspended, &t.blocked,
                           &t.windowed) == 4;
        }, 20000);
        DeleteFileW(file.c_str());
        return t;
    }
};

}  // namespace lmvx_test
