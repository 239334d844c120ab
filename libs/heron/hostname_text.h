// Copies a host name into an endpoint's fixed-size field.
#pragma once
#include <cstddef>
#include <string_view>

namespace heron {

// Copies at most capacity - 1 characters and always terminates; names longer than the field are cut.
void CopyHostname(wchar_t* field, std::size_t capacity, std::wstring_view name);

}  // namespace heron
