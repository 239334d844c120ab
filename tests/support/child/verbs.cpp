#include "verbs.h"

#include <winsock2.h>
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>

namespace lmvx_test_child {

bool WriteWholeFile(const std::wstring& path, const void* bytes, size_t size) {
    const std::wstring temporary = path + L".part";
    HANDLE file = CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const BOOL wrote = WriteFile(file, bytes, static_cast<DWORD>(size), &written, nullptr);
    CloseHandle(file);
    return wrote && MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING);
}

int WaitForInputToClose(void* watched, const std::wstring& closedMarker) {
    HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    DWORD available = 0, flags = 0;
    for (bool reported = false; PeekNamedPipe(input, nullptr, 0, nullptr, &available, nullptr); Sleep(10)) {
        if (!reported && watched && !GetHandleInformation(watched, &flags)) {
            reported = WriteWholeFile(closedMarker, L"closed\n");
        }
    }
    return 0;
}

namespace {

// The argument at index as a whole decimal number; false when it is missing or not one.
bool ReadNumber(Arguments arguments, size_t index, DWORD& value) {
    wchar_t* end = nullptr;
    if (index >= arguments.size()) return false;
    value = static_cast<DWORD>(std::wcstoul(arguments[index], &end, 10));
    return end != arguments[index] && *end == L'\0';
}

// sleep <ms>: idles, then exits with 0.
int SleepVerb(Arguments arguments) {
    DWORD milliseconds = 0;
    if (!ReadNumber(arguments, 0, milliseconds)) return ExitUsage;
    Sleep(milliseconds);
    return 0;
}

// threads <n> <ms>: starts n more threads that idle, then idles itself; exits with 0 after ms.
int ThreadsVerb(Arguments arguments) {
    DWORD extraThreads = 0, milliseconds = 0;
    if (!ReadNumber(arguments, 0, extraThreads) || !ReadNumber(arguments, 1, milliseconds)) return ExitUsage;
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
    if (!ReadNumber(arguments, 0, milliseconds)) return ExitUsage;
    volatile unsigned long long sink = 0;
    for (const ULONGLONG end = GetTickCount64() + milliseconds; GetTickCount64() < end;) sink = sink + 1;
    return 0;
}

// spawn <verb> <args...>: starts a copy of this program with the rest of its own command line, waits for it,
// and exits with its exit code.
int SpawnVerb(Arguments arguments) {
    wchar_t self[MAX_PATH];
    const std::wstring_view line = GetCommandLineW();
    const size_t verb = line.find(L" spawn ");
    if (arguments.empty() || verb == std::wstring_view::npos || !GetModuleFileNameW(nullptr, self, MAX_PATH))
        return ExitUsage;
    std::wstring commandLine = L"\"" + std::wstring(self) + L"\" " + std::wstring(line.substr(verb + 7));
    STARTUPINFOW startup{sizeof startup};
    PROCESS_INFORMATION process{};
    // Without a console, as the tests start the child itself.
    if (!CreateProcessW(self, commandLine.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr, nullptr, &startup,
                        &process))
        return ExitFailed;
    CloseHandle(process.hThread);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = ExitFailed;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hProcess);
    return static_cast<int>(exitCode);
}

// note <file> <ms> [anything...]: writes its own command line (UTF-16) to the file, then idles for ms.
int NoteVerb(Arguments arguments) {
    DWORD milliseconds = 0;
    if (!ReadNumber(arguments, 1, milliseconds)) return ExitUsage;
    if (!WriteWholeFile(arguments[0], GetCommandLineW())) return ExitFailed;
    Sleep(milliseconds);
    return 0;
}

// environment <file> <ms>: writes its environment block (UTF-16, with the final empty string) to the file,
// then idles for ms.
int EnvironmentVerb(Arguments arguments) {
    DWORD milliseconds = 0;
    if (!ReadNumber(arguments, 1, milliseconds)) return ExitUsage;
    wchar_t* block = GetEnvironmentStringsW();
    if (!block) return ExitFailed;
    size_t length = 0;
    while (block[length] || block[length + 1]) ++length;
    const bool wrote = WriteWholeFile(arguments[0], block, (length + 2) * sizeof(wchar_t));
    FreeEnvironmentStringsW(block);
    if (!wrote) return ExitFailed;
    Sleep(milliseconds);
    return 0;
}

// A socket on 127.0.0.1 (port 0: any): connected, or bound (and listening for TCP). After one call that the
// process answers itself, Wine reports this process as its owner.
SOCKET OnLoopback(int type, unsigned short port, bool doConnect) {
    SOCKET socket = ::socket(AF_INET, type, 0);
    sockaddr_in address{AF_INET, htons(port), {}, {}};
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto* name = reinterpret_cast<const sockaddr*>(&address);
    if (socket == INVALID_SOCKET || (doConnect ? connect(socket, name, sizeof address) : bind(socket, name, sizeof address))) {
        return INVALID_SOCKET;
    }
    if (!doConnect && type == SOCK_STREAM && listen(socket, 1) != 0) return INVALID_SOCKET;
    int value = 0, length = sizeof value;
    getsockopt(socket, SOL_SOCKET, SO_KEEPALIVE, reinterpret_cast<char*>(&value), &length);
    return socket;
}

std::wstring PortOf(SOCKET socket) {
    sockaddr_in address{};
    int length = sizeof address;
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length);
    return std::to_wstring(ntohs(address.sin_port));
}

// sockets <file> <event>: a TCP listener, a connection to it and a UDP socket, all on 127.0.0.1; writes
// "<listener port> <client port> <udp port>" (UTF-16) to the file, closes the UDP socket once the named
// event is set, then idles until ended.
int SocketsVerb(Arguments arguments) {
    WSADATA data{};
    if (arguments.size() < 2) return ExitUsage;
    if (WSAStartup(MAKEWORD(2, 2), &data) != 0) return ExitFailed;
    const SOCKET listener = OnLoopback(SOCK_STREAM, 0, false);
    if (listener == INVALID_SOCKET) return ExitFailed;
    const SOCKET client = OnLoopback(SOCK_STREAM, static_cast<unsigned short>(std::stoi(PortOf(listener))), true);
    const SOCKET udp = OnLoopback(SOCK_DGRAM, 0, false);
    if (client == INVALID_SOCKET || accept(listener, nullptr, nullptr) == INVALID_SOCKET || udp == INVALID_SOCKET) {
        return ExitFailed;
    }
    const std::wstring ports = PortOf(listener) + L" " + PortOf(client) + L" " + PortOf(udp);
    HANDLE event = CreateEventW(nullptr, TRUE, FALSE, arguments[1]);
    if (!event || !WriteWholeFile(arguments[0], ports)) return ExitFailed;
    WaitForSingleObject(event, INFINITE);
    closesocket(udp);
    Sleep(INFINITE);
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
    if (!WriteWholeFile(arguments[0], line, static_cast<size_t>(length))) return ExitFailed;
    return WaitForInputToClose();
}

// windows [--minimized] <title>...: one top-level window per title ("" gives one without a title), the first
// minimised when asked; exits when all are closed, with the number of windows that received WM_CLOSE.
int g_openWindows = 0;
int g_closeRequests = 0;

LRESULT CALLBACK ClosableWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) ++g_closeRequests;
    if (message == WM_DESTROY && --g_openWindows == 0) PostQuitMessage(g_closeRequests);
    return DefWindowProcW(window, message, wParam, lParam);
}

int WindowsVerb(Arguments arguments) {
    const bool minimized = !arguments.empty() && std::wcscmp(arguments[0], L"--minimized") == 0;
    if (minimized) arguments = arguments.subspan(1);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = ClosableWindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"LumivexTestChildWindow";
    if (!RegisterClassW(&windowClass)) return ExitFailed;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const int offset = 40 * static_cast<int>(i + 1);
        HWND window = CreateWindowExW(0, windowClass.lpszClassName, arguments[i], WS_OVERLAPPEDWINDOW, offset, offset,
                                      240, 120, nullptr, nullptr, windowClass.hInstance, nullptr);
        if (!window) return ExitFailed;
        ++g_openWindows;
        ShowWindow(window, i == 0 && minimized ? SW_SHOWMINNOACTIVE : SW_SHOWNOACTIVATE);
    }
    if (g_openWindows == 0) return 0;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return static_cast<int>(message.wParam);
}

constexpr VerbEntry VerbTable[] = {
    {L"sleep", SleepVerb, L"sleep <ms>"},
    {L"burn", BurnVerb, L"burn <ms>"},
    {L"threads", ThreadsVerb, L"threads <n> <ms>"},
    {L"spawn", SpawnVerb, L"spawn <verb> <args...>"},
    {L"note", NoteVerb, L"note <file> <ms> [anything...]"},
    {L"environment", EnvironmentVerb, L"environment <file> <ms>"},
    {L"sockets", SocketsVerb, L"sockets <file> <event>"},
    {L"deep-stack", DeepStackVerb, L"deep-stack <depth> <ms>: the main thread sleeps <depth> calls deep"},
    {L"known-threads", KnownThreadsVerb, L"known-threads <file> <ms>: one thread burns, one is suspended, one is blocked, one has a window"},
    {L"many-modules", ManyModulesVerb, L"many-modules <folder> <count> <ms>: loads <count> distinct empty DLLs written to <folder>, then writes <folder>\\loaded"},
    {L"hold", HoldVerb, L"hold <file> <report> <other pid>"},
    {L"many", ManyHandlesVerb, L"many <count> <report>"},
    {L"memory", MemoryVerb, L"memory <file>"},
    {L"windows", WindowsVerb, L"windows [--minimized] <title>..."},
};

}  // namespace

std::span<const VerbEntry> Verbs() { return VerbTable; }

}  // namespace lmvx_test_child
