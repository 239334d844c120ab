#include "heron.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "byte_order.h"
#include "endpoint_id.h"
#include "endpoint_tables.h"
#include "host_resolver.h"
#include "hostname_text.h"
#include "name_cache.h"
#include "protocol_rules.h"

namespace heron {

namespace {

// How long ResolveAddresses may hold up its caller (a page refreshing on the window's thread); lookups
// that take longer finish in the background and show at a later refresh.
constexpr std::chrono::milliseconds kResolveBudget{300};

AddressKey LocalKey(const Endpoint& endpoint) {
    return {IsIPv6Protocol(endpoint.protocol), endpoint.localAddress, endpoint.localScopeId};
}

AddressKey RemoteKey(const Endpoint& endpoint) {
    return {IsIPv6Protocol(endpoint.protocol), endpoint.remoteAddress, endpoint.remoteScopeId};
}

// The cached name of an address, empty when it is unspecified, unknown or has none.
std::wstring CachedNameOf(const AddressKey& key) {
    std::wstring name;
    if (IsUnspecifiedAddress(key.address)) return name;
    FindCachedName(key, name);
    return name;
}

}  // namespace

struct _CONNECTIONLIST::Contents {
    std::vector<Endpoint> endpoints;
    std::vector<_CONNECTIONOBJECT> objects;   // same order as endpoints
    HostResolver resolver;
};

_CONNECTIONLIST::_CONNECTIONLIST() = default;

_CONNECTIONLIST::~_CONNECTIONLIST() { Delete(); }

int _CONNECTIONLIST::Init() {
    try {
        if (!contents_) contents_ = std::make_unique<Contents>();
        contents_->endpoints.clear();
        contents_->objects.clear();
        return 1;
    } catch (...) {
        return 0;
    }
}

int _CONNECTIONLIST::Delete() {
    try {
        contents_.reset();
        return 1;
    } catch (...) {
        return 0;
    }
}

int _CONNECTIONLIST::QueryProcessList(DWORD processId) {
    try {
        if (!contents_ && !Init()) return 0;
        std::vector<Endpoint> endpoints;
        if (!CollectProcessEndpoints(processId, endpoints)) return 0;
        const std::vector<std::uint32_t> ids = AssignGenericIDs(endpoints);

        std::vector<_CONNECTIONOBJECT> objects(endpoints.size());
        for (std::size_t i = 0; i < endpoints.size(); ++i) {
            const Endpoint& endpoint = endpoints[i];
            _CONNECTIONOBJECT& object = objects[i];
            object.genericId_ = ids[i];
            object.protocol_ = endpoint.protocol;
            if (IsIPv6Protocol(endpoint.protocol)) {
                std::copy(endpoint.localAddress.begin(), endpoint.localAddress.end(), object.localIP6Address_);
                std::copy(endpoint.remoteAddress.begin(), endpoint.remoteAddress.end(), object.remoteIP6Address_);
            } else {
                object.localAddress_ = PackIPv4(endpoint.localAddress);
                object.remoteAddress_ = PackIPv4(endpoint.remoteAddress);
            }
            object.localPort_ = endpoint.localPort;
            object.remotePort_ = endpoint.remotePort;
            object.state_ = endpoint.state;
            object.creationTime_ = endpoint.creationTime;
        }
        contents_->endpoints = std::move(endpoints);
        contents_->objects = std::move(objects);
        FillKnownHostnames();
        return 1;
    } catch (...) {
        return 0;
    }
}

int _CONNECTIONLIST::ResolveAddresses() {
    try {
        if (!contents_) return 0;
        std::vector<AddressKey> addresses;
        for (const Endpoint& endpoint : contents_->endpoints) {
            for (const AddressKey& key : {LocalKey(endpoint), RemoteKey(endpoint)}) {
                if (!IsUnspecifiedAddress(key.address)) addresses.push_back(key);
            }
        }
        if (!addresses.empty()) contents_->resolver.Resolve(addresses, kResolveBudget);
        FillKnownHostnames();
        return 1;
    } catch (...) {
        return 0;
    }
}

unsigned _CONNECTIONLIST::GetItemCount() const {
    return contents_ ? static_cast<unsigned>(contents_->objects.size()) : 0;
}

_CONNECTIONOBJECT _CONNECTIONLIST::GetItem(unsigned index) const {
    if (!contents_ || index >= contents_->objects.size()) return _CONNECTIONOBJECT{};
    return contents_->objects[index];
}

void _CONNECTIONLIST::FillKnownHostnames() {
    for (std::size_t i = 0; i < contents_->endpoints.size(); ++i) {
        const Endpoint& endpoint = contents_->endpoints[i];
        _CONNECTIONOBJECT& object = contents_->objects[i];
        CopyHostname(object.localHostname_, kHostnameCapacity, CachedNameOf(LocalKey(endpoint)));
        CopyHostname(object.remoteHostname_, kHostnameCapacity, CachedNameOf(RemoteKey(endpoint)));
    }
}

}  // namespace heron
