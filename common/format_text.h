// A formatted text of the program's own bounded print, as a string: for labels and fields built from a format.
#pragma once
#include <string>

namespace lmvx {

// At most 1199 characters; a longer result is cut.
std::wstring FormatText(const wchar_t* format, ...);

}  // namespace lmvx
