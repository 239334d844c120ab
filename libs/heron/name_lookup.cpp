#include "name_lookup.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <cstring>

namespace heron {

std::wstring LookupHostName(const AddressKey& key) {
    sockaddr_storage storage{};
    int length = 0;
    if (key.ipv6) {
        auto* address = reinterpret_cast<sockaddr_in6*>(&storage);
        address->sin6_family = AF_INET6;
        std::memcpy(&address->sin6_addr, key.address.data(), sizeof(address->sin6_addr));
        address->sin6_scope_id = key.scopeId;
        length = sizeof(sockaddr_in6);
    } else {
        auto* address = reinterpret_cast<sockaddr_in*>(&storage);
        address->sin_family = AF_INET;
        std::memcpy(&address->sin_addr, key.address.data(), sizeof(address->sin_addr));
        length = sizeof(sockaddr_in);
    }
    wchar_t name[NI_MAXHOST] = {};
    // NI_NAMEREQD: an address without a name yields no name, not its own numeric text.
    const int result = GetNameInfoW(reinterpret_cast<const sockaddr*>(&storage), length, name, NI_MAXHOST,
                                    nullptr, 0, NI_NAMEREQD);
    return result == 0 ? std::wstring(name) : std::wstring();
}

}  // namespace heron
