// Rules of the Task Manager replacement that need no registry: the Windows 2000 path limit and how a stored
// "Debugger" value is compared with the program's own path.
#pragma once
#include <cstddef>

namespace lmvx {

// Windows 2000 cannot start a replacement from a long path. The limit is one character stricter than the
// warning text says (it speaks of "less than 48 characters"): intended, paths of 47 characters are refused.
inline constexpr std::size_t kWindows2000QuotedPathLimit = 47;
bool QuotedPathTooLongForWindows2000(std::size_t quotedLength);

// The stored value names this program when it equals the own quoted path, ignoring letter case.
bool IsSameReplacementPath(const wchar_t* ownQuotedPath, const wchar_t* storedValue);

}  // namespace lmvx
