// Reading a whole endpoint list in the endpoint tests.
#pragma once
#include <functional>
#include <optional>
#include <vector>

#include "heron.h"

namespace heron::test {

inline std::vector<_CONNECTIONOBJECT> ItemsOf(const _CONNECTIONLIST& list) {
    std::vector<_CONNECTIONOBJECT> items;
    for (unsigned i = 0; i < list.GetItemCount(); ++i) items.push_back(list.GetItem(i));
    return items;
}

inline std::optional<_CONNECTIONOBJECT> FindItem(const _CONNECTIONLIST& list,
                                                 const std::function<bool(const _CONNECTIONOBJECT&)>& match) {
    for (const _CONNECTIONOBJECT& item : ItemsOf(list)) {
        if (match(item)) return item;
    }
    return std::nullopt;
}

inline std::optional<_CONNECTIONOBJECT> FindByPorts(const _CONNECTIONLIST& list, int protocol, unsigned localPort,
                                                    unsigned remotePort) {
    return FindItem(list, [&](const _CONNECTIONOBJECT& item) {
        return item.GetProtocol() == protocol && item.GetLocalPort() == localPort &&
               item.GetRemotePort() == remotePort;
    });
}

// Which list holds an endpoint of the test process. Where the system's tables name each row's owning
// process, that is the test process's own list. Where they name no owner (under Wine in some sandboxes every
// row has owner 0), it is the list of process 0, so reading and converting the rows can still be checked;
// the ownership filter itself is then covered by the row-level unit tests.
struct EndpointOwner {
    DWORD processId = 0;
    bool ownersReported = false;
};

inline EndpointOwner OwnerOf(int protocol, unsigned localPort) {
    const DWORD self = GetCurrentProcessId();
    _CONNECTIONLIST list;
    if (list.QueryProcessList(self) && FindByPorts(list, protocol, localPort, 0)) return {self, true};
    if (list.QueryProcessList(0) && FindByPorts(list, protocol, localPort, 0)) return {0, false};
    return {self, true};   // not listed at all: the tests using it fail with their own message
}

inline constexpr const char* kNoOwnersReason =
    "the system's endpoint tables report no owning process (owner 0 on every row); checked in process 0's list";

}  // namespace heron::test
