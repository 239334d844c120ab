// Every string of a module in one language, each taken from the best language copy that has it.
#pragma once
#include <windows.h>
#include <string>
#include <unordered_map>

namespace finch {

using StringTable = std::unordered_map<UINT, std::wstring>;

// Per string, the wanted language's text when its copy has one, else the fallback of PickResourceLanguage.
// Empty strings count as missing: a string table cannot tell the two apart.
StringTable BuildStringTable(HINSTANCE module, LANGID wanted);

}  // namespace finch
