#include "snapshot.h"

#include <algorithm>

namespace kestrel::detail {

int Snapshot::IndexOf(unsigned pid) const {
    const auto found = std::lower_bound(indexByPid.begin(), indexByPid.end(), pid,
                                        [](const std::pair<unsigned, int>& entry, unsigned key) { return entry.first < key; });
    return found != indexByPid.end() && found->first == pid ? found->second : -1;
}

}  // namespace kestrel::detail
