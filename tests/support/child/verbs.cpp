#include "verbs.h"

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>

namespace lmvx_test_child {

namespace {

bool ReadMilliseconds(Arguments arguments, DWORD& milliseconds) {
    if (arguments.empty()) return false;
    wchar_t* end = nullptr;
    const unsigned long value = std::wcstoul(arguments[0], &end, 10);
    if (end == arguments[0] || *end != L'\0') return false;
    milliseconds = static_cast<DWORD>(value);
    return true;
}

// sleep <ms>: idles, then exits with 0.
int SleepVerb(Arguments arguments) {
    DWORD milliseconds = 0;
    if (!ReadMilliseconds(arguments, milliseconds)) return ExitUsage;
    Sleep(milliseconds);
    return 0;
}

// threads <n> <ms>: starts n more threads that idle, then idles itself; exits with 0 after ms.
int ThreadsVerb(Arguments arguments) {
    DWORD extraThreads = 0;
    DWORD milliseconds = 0;
    if (!ReadMilliseconds(arguments, extraThreads) || !ReadMilliseconds(arguments.subspan(1), milliseconds)) {
        return ExitUsage;
    }
    for (DWORD i = 0; i < extraThreads; ++i) {
        HANDLE thread = CreateThread(nullptr, 0, [](void*) -> DWORD { Sleep(INFINITE); return 0; }, nullptr, 0, nullptr);
        if (!thread) return ExitFailed;
        CloseHandle(thread);
    }
    Sleep(milliseconds);
    return 0;
}

// burn <ms>: keeps one processor busy for that long.
int BurnVerb(Arguments arguments) {
    DWORD milliseconds = 0;
    if (!ReadMilliseconds(arguments, milliseconds)) return ExitUsage;
    const ULONGLONG end = GetTickCount64() + milliseconds;
    volatile unsigned long long sink = 0;
    while (GetTickCount64() < end) {
        for (int i = 0; i < 100000; ++i) sink = sink + static_cast<unsigned long long>(i);
    }
    return 0;
}

std::wstring QuoteArgument(const wchar_t* argument) {
    std::wstring quoted = L"\"";
    for (const wchar_t* c = argument; *c; ++c) {
        if (*c == L'"') quoted += L'\\';
        quoted += *c;
    }
    return quoted + L"\"";
}

// spawn <verb> <args...>: starts a copy of this program with the remaining arguments, waits for it, and
// exits with its exit code.
int SpawnVerb(Arguments arguments) {
    if (arguments.empty()) return ExitUsage;
    wchar_t self[MAX_PATH];
    if (!GetModuleFileNameW(nullptr, self, MAX_PATH)) return ExitFailed;
    std::wstring commandLine = QuoteArgument(self);
    for (wchar_t* argument : arguments) commandLine += L" " + QuoteArgument(argument);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(self, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        return ExitFailed;
    CloseHandle(process.hThread);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = ExitFailed;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hProcess);
    return static_cast<int>(exitCode);
}

// wait [event name]: until the named event is signalled, or without a name until standard input closes.
int WaitVerb(Arguments arguments) {
    if (!arguments.empty()) {
        HANDLE event = OpenEventW(SYNCHRONIZE, FALSE, arguments[0]);
        if (!event) return ExitFailed;
        WaitForSingleObject(event, INFINITE);
        CloseHandle(event);
        return 0;
    }
    HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    char buffer[256];
    DWORD read = 0;
    while (input && input != INVALID_HANDLE_VALUE && ReadFile(input, buffer, sizeof buffer, &read, nullptr) && read > 0) {
    }
    return 0;
}

// note <file> <ms> [anything...]: writes its own command line (UTF-16) to the file, then idles for ms.
int NoteVerb(Arguments arguments) {
    DWORD milliseconds = 0;
    if (arguments.size() < 2 || !ReadMilliseconds(arguments.subspan(1), milliseconds)) return ExitUsage;
    const wchar_t* commandLine = GetCommandLineW();
    HANDLE file = CreateFileW(arguments[0], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return ExitFailed;
    DWORD written = 0;
    const BOOL wrote = WriteFile(file, commandLine, static_cast<DWORD>(std::wcslen(commandLine) * sizeof(wchar_t)),
                                 &written, nullptr);
    CloseHandle(file);
    if (!wrote) return ExitFailed;
    Sleep(milliseconds);
    return 0;
}

// memory <file>: holds a reserved 64 KiB region followed by a committed one below 4 GB, with the ASCII text
// "LumivexAsciiMarker" at +0x100 and the UTF-16 text "LumivexWideMarker" at +0x300 of the committed one;
// writes "<reserved base> <committed base>" (hex) to the file, then waits until standard input closes.
int MemoryVerb(Arguments arguments) {
    if (arguments.size() != 1) return ExitUsage;
    char* reserved = nullptr;
    for (uintptr_t at = 0x10000000; !reserved && at < 0x80000000; at += 0x1000000) {
        reserved = static_cast<char*>(VirtualAlloc(reinterpret_cast<void*>(at), 0x20000, MEM_RESERVE, PAGE_READWRITE));
    }
    if (!reserved) return ExitFailed;
    char* committed = static_cast<char*>(VirtualAlloc(reserved + 0x10000, 0x10000, MEM_COMMIT, PAGE_READWRITE));
    if (!committed) return ExitFailed;
    std::memcpy(committed + 0x100, "LumivexAsciiMarker", 18);
    std::memcpy(committed + 0x300, L"LumivexWideMarker", 17 * sizeof(wchar_t));
    char line[64];
    const int length = std::snprintf(line, sizeof line, "%llX %llX", static_cast<unsigned long long>(
        reinterpret_cast<uintptr_t>(reserved)), static_cast<unsigned long long>(reinterpret_cast<uintptr_t>(committed)));
    HANDLE file = CreateFileW(arguments[0], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return ExitFailed;
    DWORD written = 0;
    WriteFile(file, line, static_cast<DWORD>(length), &written, nullptr);
    CloseHandle(file);
    return WaitVerb({});
}

constexpr VerbEntry VerbTable[] = {
    {L"sleep", SleepVerb, L"sleep <ms>"},
    {L"burn", BurnVerb, L"burn <ms>"},
    {L"threads", ThreadsVerb, L"threads <n> <ms>"},
    {L"spawn", SpawnVerb, L"spawn <verb> <args...>"},
    {L"wait", WaitVerb, L"wait [event name]"},
    {L"note", NoteVerb, L"note <file> <ms> [anything...]"},
    {L"memory", MemoryVerb, L"memory <file>"},
};

}  // namespace

std::span<const VerbEntry> Verbs() { return VerbTable; }

}  // namespace lmvx_test_child
