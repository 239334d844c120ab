#include "resource_language.h"

#include <algorithm>

namespace finch {

namespace {

std::optional<LANGID> FindExact(LANGID language, const std::vector<LANGID>& available) {
    if (std::find(available.begin(), available.end(), language) != available.end()) return language;
    return std::nullopt;
}

std::optional<LANGID> FindPrimary(LANGID language, const std::vector<LANGID>& available) {
    for (LANGID candidate : available) {
        if (PRIMARYLANGID(candidate) == PRIMARYLANGID(language)) return candidate;
    }
    return std::nullopt;
}

}  // namespace

std::optional<LANGID> PickResourceLanguage(LANGID wanted, const std::vector<LANGID>& available) {
    const LANGID english = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    if (auto found = FindExact(wanted, available)) return found;
    if (auto found = FindPrimary(wanted, available)) return found;
    if (auto found = FindExact(english, available)) return found;
    if (auto found = FindPrimary(english, available)) return found;
    if (!available.empty()) return available.front();
    return std::nullopt;
}

}  // namespace finch
