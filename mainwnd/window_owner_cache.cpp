#include "mainwnd/window_owner_cache.h"

namespace lmvx {

std::vector<WindowOwner> WindowOwnerCache::OwnersOf(const std::vector<HWND>& windows,
                                                    const std::function<WindowOwner(HWND)>& lookup) {
    std::vector<WindowOwner> owners;
    owners.reserve(windows.size());
    std::unordered_map<HWND, WindowOwner> listed;
    std::lock_guard guard(lock_);
    for (HWND window : windows) {
        const auto known = known_.find(window);
        const WindowOwner owner = known != known_.end() ? known->second : lookup(window);
        if (owner.threadId != 0) listed.emplace(window, owner);
        owners.push_back(owner);
    }
    known_ = std::move(listed);
    return owners;
}

}  // namespace lmvx
