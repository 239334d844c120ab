#include "hostname_text.h"

#include <algorithm>

namespace heron {

void CopyHostname(wchar_t* field, std::size_t capacity, std::wstring_view name) {
    if (capacity == 0) return;
    const std::size_t length = std::min(name.size(), capacity - 1);
    std::copy_n(name.begin(), length, field);
    field[length] = L'\0';
}

}  // namespace heron
