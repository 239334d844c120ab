#include "host_resolver.h"

#include <winsock2.h>

#include <string>
#include <utility>

#include "name_cache.h"
#include "name_lookup.h"

namespace heron {

HostResolver::HostResolver(Lookup lookup) : lookup_(std::move(lookup)) {}

HostResolver::HostResolver() : HostResolver(LookupHostName) {}

HostResolver::~HostResolver() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        queue_.clear();
    }
    wake_.notify_all();
    if (worker_.joinable()) worker_.join();
}

bool HostResolver::Resolve(const std::vector<AddressKey>& addresses, std::chrono::milliseconds budget) {
    std::unique_lock lock(mutex_);
    std::vector<AddressKey> queuedNow;
    for (const AddressKey& key : addresses) {
        std::wstring ignored;
        if (pending_.count(key) != 0 || FindCachedName(key, ignored)) continue;
        pending_.insert(key);
        queue_.push_back(key);
        queuedNow.push_back(key);
    }
    if (queuedNow.empty()) return AllDone(addresses);
    if (!worker_.joinable()) worker_ = std::thread(&HostResolver::Run, this);
    wake_.notify_one();
    // Only new addresses are waited for: one that is slow to resolve holds up a single refresh, not all of
    // the refreshes that follow while it is still being looked up.
    done_.wait_for(lock, budget, [&] { return AllDone(queuedNow); });
    return AllDone(addresses);
}

bool HostResolver::AllDone(const std::vector<AddressKey>& addresses) const {
    for (const AddressKey& key : addresses) {
        if (pending_.count(key) != 0) return false;
    }
    return true;
}

void HostResolver::Run() {
    WSADATA winsock{};
    const bool winsockStarted = WSAStartup(MAKEWORD(2, 2), &winsock) == 0;
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] { return stopping_ || !queue_.empty(); });
        if (stopping_) break;
        const AddressKey key = queue_.front();
        queue_.pop_front();
        lock.unlock();
        const std::wstring name = winsockStarted ? lookup_(key) : std::wstring();
        StoreCachedName(key, name);
        lock.lock();
        pending_.erase(key);
        done_.notify_all();
    }
    lock.unlock();
    if (winsockStarted) WSACleanup();
}

}  // namespace heron
