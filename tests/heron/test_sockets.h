// Loopback sockets the endpoint tests open in their own process: owned, closed on scope exit, never
// inherited by a child process.
#pragma once
#include <winsock2.h>
#include <ws2tcpip.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

namespace heron::test {

class WinsockSession {
public:
    WinsockSession() : started_(WSAStartup(MAKEWORD(2, 2), &data_) == 0) {}
    ~WinsockSession() {
        if (started_) WSACleanup();
    }
    WinsockSession(const WinsockSession&) = delete;
    WinsockSession& operator=(const WinsockSession&) = delete;
    bool Started() const { return started_; }

private:
    WSADATA data_{};
    bool started_;
};

class Socket {
public:
    explicit Socket(SOCKET socket = INVALID_SOCKET) : socket_(socket) {}
    Socket(Socket&& other) noexcept : socket_(std::exchange(other.socket_, INVALID_SOCKET)) {}
    Socket& operator=(Socket&& other) noexcept {
        std::swap(socket_, other.socket_);
        return *this;
    }
    ~Socket() { Close(); }

    SOCKET Get() const { return socket_; }
    explicit operator bool() const { return socket_ != INVALID_SOCKET; }
    void Close() {
        if (socket_ != INVALID_SOCKET) closesocket(std::exchange(socket_, INVALID_SOCKET));
    }

private:
    SOCKET socket_;
};

// A socket of the type on the family's loopback address (127.0.0.1 or ::1): connected to the port when one
// is given, else bound to a port the system picks (and listening, for TCP); empty on failure.
inline Socket OnLoopback(int family, int type, unsigned connectPort = 0) {
    // Not inheritable: a child process started by a test must not appear as an owner of these sockets.
    Socket socket(WSASocketW(family, type, type == SOCK_STREAM ? IPPROTO_TCP : IPPROTO_UDP, nullptr, 0,
                             WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT));
    sockaddr_in6 six{};
    sockaddr_in four{};
    six.sin6_family = AF_INET6;
    six.sin6_addr = in6addr_loopback;
    six.sin6_port = htons(static_cast<u_short>(connectPort));
    four.sin_family = AF_INET;
    four.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    four.sin_port = six.sin6_port;
    const auto* address = family == AF_INET6 ? reinterpret_cast<const sockaddr*>(&six) : reinterpret_cast<const sockaddr*>(&four);
    const int length = family == AF_INET6 ? sizeof six : sizeof four;
    const bool ready = socket && (connectPort ? connect(socket.Get(), address, length) == 0
                                              : bind(socket.Get(), address, length) == 0 &&
                                                    (type != SOCK_STREAM || listen(socket.Get(), 4) == 0));
    return ready ? std::move(socket) : Socket();
}
inline Socket ListenOnLoopback(int family) { return OnLoopback(family, SOCK_STREAM); }
inline Socket BindUdpOnLoopback(int family) { return OnLoopback(family, SOCK_DGRAM); }
inline Socket ConnectToLoopback(int family, unsigned port) { return OnLoopback(family, SOCK_STREAM, port); }
// The accepted end of a pending connection (complete already on loopback, so this does not wait).
inline Socket AcceptOne(const Socket& listener) { return Socket(accept(listener.Get(), nullptr, nullptr)); }

// The local port of a bound socket in host order, and its address bytes (IPv4: four octets, then zeros).
inline std::pair<unsigned, std::array<std::uint8_t, 16>> LocalNameOf(const Socket& socket) {
    sockaddr_storage address{};
    int length = sizeof address;
    std::array<std::uint8_t, 16> bytes{};
    if (getsockname(socket.Get(), reinterpret_cast<sockaddr*>(&address), &length) != 0) return {0, bytes};
    const auto* six = reinterpret_cast<const sockaddr_in6*>(&address);
    const auto* four = reinterpret_cast<const sockaddr_in*>(&address);
    const bool isSix = address.ss_family == AF_INET6;
    std::memcpy(bytes.data(), isSix ? static_cast<const void*>(&six->sin6_addr) : &four->sin_addr, isSix ? 16 : 4);
    return {ntohs(isSix ? six->sin6_port : four->sin_port), bytes};
}
inline unsigned LocalPortOf(const Socket& socket) { return LocalNameOf(socket).first; }
inline std::array<std::uint8_t, 16> LocalAddressOf(const Socket& socket) { return LocalNameOf(socket).second; }

}  // namespace heron::test
