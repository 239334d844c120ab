// Loopback sockets the endpoint tests open in their own process: owned, closed on scope exit, never
// inherited by a child process.
#pragma once
#include <winsock2.h>
#include <ws2tcpip.h>

#include <array>
#include <cstdint>
#include <utility>

namespace heron::test {

class WinsockSession {
public:
    WinsockSession() { started_ = WSAStartup(MAKEWORD(2, 2), &data_) == 0; }
    ~WinsockSession() {
        if (started_) WSACleanup();
    }
    WinsockSession(const WinsockSession&) = delete;
    WinsockSession& operator=(const WinsockSession&) = delete;
    bool Started() const { return started_; }

private:
    WSADATA data_{};
    bool started_ = false;
};

class Socket {
public:
    Socket() = default;
    explicit Socket(SOCKET socket) : socket_(socket) {}
    Socket(Socket&& other) noexcept : socket_(std::exchange(other.socket_, INVALID_SOCKET)) {}
    Socket& operator=(Socket&& other) noexcept {
        if (this != &other) {
            Close();
            socket_ = std::exchange(other.socket_, INVALID_SOCKET);
        }
        return *this;
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket() { Close(); }

    SOCKET Get() const { return socket_; }
    explicit operator bool() const { return socket_ != INVALID_SOCKET; }
    void Close() {
        if (socket_ != INVALID_SOCKET) closesocket(std::exchange(socket_, INVALID_SOCKET));
    }

private:
    SOCKET socket_ = INVALID_SOCKET;
};

// Loopback address of the family (127.0.0.1 or ::1), port 0 so the system picks one.
sockaddr_storage LoopbackAddress(int family, int* length);
// A TCP socket listening on the family's loopback address; empty on failure.
Socket ListenOnLoopback(int family);
// A TCP client connected to the family's loopback address at port; empty on failure.
Socket ConnectToLoopback(int family, unsigned port);
// The accepted end of a pending connection; empty on failure.
Socket AcceptOne(const Socket& listener);
// A UDP socket bound to the family's loopback address; empty on failure.
Socket BindUdpOnLoopback(int family);
// The local port of a bound socket in host order; 0 when it cannot be read.
unsigned LocalPortOf(const Socket& socket);
// The local address bytes of a bound socket (IPv4: four octets, then zeros).
std::array<std::uint8_t, 16> LocalAddressOf(const Socket& socket);

}  // namespace heron::test
