// A helper process for the endpoint tests: opens a TCP listener on 127.0.0.1, writes its port as a line to
// standard output and keeps it open until its standard input is closed (or a minute has passed).
#include <windows.h>

#include <cstdio>

#include "test_sockets.h"

int main() {
    heron::test::WinsockSession winsock;
    if (!winsock.Started()) return 1;
    const heron::test::Socket listener = heron::test::ListenOnLoopback(AF_INET);
    if (!listener) return 2;

    char line[32];
    const int length = std::snprintf(line, sizeof line, "%u\n", heron::test::LocalPortOf(listener));
    DWORD written = 0;
    if (!WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line, static_cast<DWORD>(length), &written, nullptr)) return 3;

    constexpr ULONGLONG kLifetimeMs = 60000;
    const ULONGLONG deadline = GetTickCount64() + kLifetimeMs;
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    while (GetTickCount64() < deadline) {
        DWORD available = 0;
        if (!PeekNamedPipe(input, nullptr, 0, nullptr, &available, nullptr)) break;   // parent closed it
        Sleep(20);
    }
    return 0;
}
