// Looks up host names on a worker thread of its own, so that a caller on a window's thread waits only a
// bounded time however slow the resolver is. Results go to the shared name cache.
#pragma once
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "address_key.h"

namespace heron {

class HostResolver {
public:
    using Lookup = std::function<std::wstring(const AddressKey&)>;

    // lookup runs on the worker thread, one address at a time; the system resolver by default.
    explicit HostResolver(Lookup lookup);
    HostResolver();
    HostResolver(const HostResolver&) = delete;
    HostResolver& operator=(const HostResolver&) = delete;
    // Waits for the lookup in progress (if any) to end; queued ones are dropped.
    ~HostResolver();

    // Queues the addresses whose names are neither cached nor already queued, and waits until those are
    // done or the budget has passed. Returns true when all of the given addresses are done.
    bool Resolve(const std::vector<AddressKey>& addresses, std::chrono::milliseconds budget);

private:
    void Run();
    bool AllDone(const std::vector<AddressKey>& addresses) const;

    Lookup lookup_;
    std::mutex mutex_;
    std::condition_variable wake_;   // work queued or stop requested
    std::condition_variable done_;   // a lookup finished
    std::deque<AddressKey> queue_;
    std::set<AddressKey> pending_;   // queued or being looked up
    bool stopping_ = false;
    std::thread worker_;
};

}  // namespace heron
