// Which language copy of a resource the language module uses.
#pragma once
#include <windows.h>
#include <optional>
#include <vector>

namespace finch {

// The wanted language when present, else another variant of the same language, else US English,
// else any English, else the first language available; nothing when no copy exists.
std::optional<LANGID> PickResourceLanguage(LANGID wanted, const std::vector<LANGID>& available);

}  // namespace finch
