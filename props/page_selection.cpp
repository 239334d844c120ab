#include "props/page_selection.h"

#include <algorithm>
#include <cwchar>

namespace lmvx {

bool PageConditionHolds(PageCondition condition, const ProcessAccess& access) {
    switch (condition) {
    case PageCondition::Always: return true;
    case PageCondition::QueryAccess: return access.query;
    case PageCondition::TokenQuery: return access.token;
    case PageCondition::ModuleSnapshot: return access.moduleSnapshot;
    }
    return false;
}

std::vector<size_t> TreeOrder(PropertyPageTable pages, const ProcessAccess& access) {
    std::vector<size_t> order;
    for (size_t i = 0; i < pages.size(); ++i) {
        if (pages[i].procedure && PageConditionHolds(pages[i].condition, access)) order.push_back(i);
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return pages[a].treePosition < pages[b].treePosition; });
    return order;
}

std::wstring FormatExitNotice(const wchar_t* format, unsigned long exitCode) {
    wchar_t text[512];
    // The same code twice: signed decimal (0xC0000005 reads -1073741819), then hexadecimal.
    const int written = std::swprintf(text, 512, format, static_cast<int>(exitCode), static_cast<unsigned>(exitCode));
    return written < 0 ? std::wstring() : std::wstring(text);
}

}  // namespace lmvx
