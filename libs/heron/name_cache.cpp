#include "name_cache.h"

#include <map>
#include <mutex>

namespace heron {

namespace {

// A process manager runs for days: past this many addresses the cache starts over rather than grow.
constexpr std::size_t kMaxCachedNames = 4096;

struct NameCache {
    std::mutex mutex;
    std::map<AddressKey, std::wstring> names;
};

NameCache& TheCache() {
    static NameCache cache;
    return cache;
}

}  // namespace

bool FindCachedName(const AddressKey& key, std::wstring& name) {
    NameCache& cache = TheCache();
    std::lock_guard lock(cache.mutex);
    const auto found = cache.names.find(key);
    if (found == cache.names.end()) return false;
    name = found->second;
    return true;
}

void StoreCachedName(const AddressKey& key, const std::wstring& name) {
    NameCache& cache = TheCache();
    std::lock_guard lock(cache.mutex);
    if (cache.names.size() >= kMaxCachedNames) cache.names.clear();
    cache.names[key] = name;
}

}  // namespace heron
