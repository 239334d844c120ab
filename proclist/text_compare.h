// The text order of the process list: the default locale's case-sensitive order, no ignore flags.
#pragma once
#include <string>

namespace proclist {

// CompareStringW(locale 0, flags 0): -1, 0 or 1; a failed comparison counts as equal.
int CompareTextDefaultLocale(const std::wstring& a, const std::wstring& b);

}  // namespace proclist
