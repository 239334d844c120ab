#include "test_sockets.h"

#include <cstring>

namespace heron::test {

namespace {

Socket NewSocket(int family, int type, int protocol) {
    // Not inheritable: a child process started by a test must not appear as an owner of these sockets.
    return Socket(WSASocketW(family, type, protocol, nullptr, 0, WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT));
}

bool LocalName(const Socket& socket, sockaddr_storage& address) {
    int length = sizeof address;
    return getsockname(socket.Get(), reinterpret_cast<sockaddr*>(&address), &length) == 0;
}

}  // namespace

sockaddr_storage LoopbackAddress(int family, int* length) {
    sockaddr_storage storage{};
    if (family == AF_INET6) {
        auto* address = reinterpret_cast<sockaddr_in6*>(&storage);
        address->sin6_family = AF_INET6;
        address->sin6_addr = in6addr_loopback;
        *length = sizeof(sockaddr_in6);
    } else {
        auto* address = reinterpret_cast<sockaddr_in*>(&storage);
        address->sin_family = AF_INET;
        address->sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        *length = sizeof(sockaddr_in);
    }
    return storage;
}

Socket ListenOnLoopback(int family) {
    Socket socket = NewSocket(family, SOCK_STREAM, IPPROTO_TCP);
    if (!socket) return socket;
    int length = 0;
    const sockaddr_storage address = LoopbackAddress(family, &length);
    if (bind(socket.Get(), reinterpret_cast<const sockaddr*>(&address), length) != 0 ||
        listen(socket.Get(), 4) != 0) {
        return Socket();
    }
    return socket;
}

Socket ConnectToLoopback(int family, unsigned port) {
    Socket socket = NewSocket(family, SOCK_STREAM, IPPROTO_TCP);
    if (!socket) return socket;
    int length = 0;
    sockaddr_storage address = LoopbackAddress(family, &length);
    if (family == AF_INET6) {
        reinterpret_cast<sockaddr_in6*>(&address)->sin6_port = htons(static_cast<u_short>(port));
    } else {
        reinterpret_cast<sockaddr_in*>(&address)->sin_port = htons(static_cast<u_short>(port));
    }
    if (connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), length) != 0) return Socket();
    return socket;
}

Socket AcceptOne(const Socket& listener) {
    // The connection is already complete on loopback, so this does not wait.
    return Socket(accept(listener.Get(), nullptr, nullptr));
}

Socket BindUdpOnLoopback(int family) {
    Socket socket = NewSocket(family, SOCK_DGRAM, IPPROTO_UDP);
    if (!socket) return socket;
    int length = 0;
    const sockaddr_storage address = LoopbackAddress(family, &length);
    if (bind(socket.Get(), reinterpret_cast<const sockaddr*>(&address), length) != 0) return Socket();
    return socket;
}

unsigned LocalPortOf(const Socket& socket) {
    sockaddr_storage address{};
    if (!LocalName(socket, address)) return 0;
    if (address.ss_family == AF_INET6) return ntohs(reinterpret_cast<const sockaddr_in6*>(&address)->sin6_port);
    return ntohs(reinterpret_cast<const sockaddr_in*>(&address)->sin_port);
}

std::array<std::uint8_t, 16> LocalAddressOf(const Socket& socket) {
    std::array<std::uint8_t, 16> bytes{};
    sockaddr_storage address{};
    if (!LocalName(socket, address)) return bytes;
    if (address.ss_family == AF_INET6) {
        std::memcpy(bytes.data(), &reinterpret_cast<const sockaddr_in6*>(&address)->sin6_addr, 16);
    } else {
        std::memcpy(bytes.data(), &reinterpret_cast<const sockaddr_in*>(&address)->sin_addr, 4);
    }
    return bytes;
}

}  // namespace heron::test
