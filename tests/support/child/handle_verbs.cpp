// Verbs that hold handles of known kinds, for the handle-list tests.
#include "verbs.h"

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace lmvx_test_child {

namespace {

std::wstring Line(const wchar_t* what, HANDLE handle) {
    wchar_t text[64];
    std::swprintf(text, 64, L"%ls %llu\n", what, static_cast<unsigned long long>(reinterpret_cast<ULONG_PTR>(handle)));
    return text;
}

}  // namespace

// hold <file> <report> <other pid>: opens a named event and mutex, the file (created), a registry key, a pipe
// with a synchronous read pending on it, and the process <other pid>; writes "<kind> <handle value>" lines to
// report, then waits for standard input to close. When the file handle is closed from outside, writes
// <report>.closed.
int HoldVerb(Arguments arguments) {
    if (arguments.size() < 3) return ExitUsage;
    const std::wstring filePath = arguments[0];
    const std::wstring report = arguments[1];
    const DWORD otherPid = std::wcstoul(arguments[2], nullptr, 10);
    const std::wstring suffix = std::to_wstring(GetCurrentProcessId());

    HANDLE event = CreateEventW(nullptr, TRUE, FALSE, (L"lmvx_test_event_" + suffix).c_str());
    HANDLE mutex = CreateMutexW(nullptr, FALSE, (L"lmvx_test_mutex_" + suffix).c_str());
    HANDLE file = CreateFileW(filePath.c_str(), GENERIC_READ | GENERIC_WRITE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key);
    HANDLE pipeRead = nullptr;
    HANDLE pipeWrite = nullptr;
    CreatePipe(&pipeRead, &pipeWrite, nullptr, 0);
    HANDLE other = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, otherPid);
    if (!event || !mutex || file == INVALID_HANDLE_VALUE || !key || !pipeRead || !other) return ExitFailed;

    // A synchronous read that never completes: nobody writes to the pipe.
    HANDLE reader = CreateThread(nullptr, 0, [](void* pipe) -> DWORD {
        char byte = 0;
        DWORD read = 0;
        ReadFile(static_cast<HANDLE>(pipe), &byte, 1, &read, nullptr);
        return 0;
    }, pipeRead, 0, nullptr);
    if (!reader) return ExitFailed;

    const std::wstring text = Line(L"event", event) + Line(L"mutex", mutex) + Line(L"file", file) +
                              Line(L"key", key) + Line(L"pipe", pipeRead) + Line(L"process", other);
    if (!WriteWholeFile(report, text)) return ExitFailed;
    return WaitForInputToClose(file, report + L".closed");
}

// many <count> <report>: holds count more handles (duplicates of one event), writes "ready" to report, then
// waits for standard input to close.
int ManyHandlesVerb(Arguments arguments) {
    if (arguments.size() < 2) return ExitUsage;
    const unsigned long count = std::wcstoul(arguments[0], nullptr, 10);
    HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (!event) return ExitFailed;
    for (unsigned long i = 0; i < count; ++i) {
        HANDLE copy = nullptr;
        if (!DuplicateHandle(GetCurrentProcess(), event, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS))
            return ExitFailed;
    }
    if (!WriteWholeFile(arguments[1], L"ready\n")) return ExitFailed;
    return WaitForInputToClose();
}

}  // namespace lmvx_test_child
