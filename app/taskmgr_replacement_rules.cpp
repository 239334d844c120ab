#include "app/taskmgr_replacement_rules.h"

#include <windows.h>

namespace lmvx {

bool QuotedPathTooLongForWindows2000(std::size_t quotedLength) { return quotedLength >= kWindows2000QuotedPathLimit; }

bool IsSameReplacementPath(const wchar_t* ownQuotedPath, const wchar_t* storedValue) {
    return CompareStringW(LOCALE_SYSTEM_DEFAULT, NORM_IGNORECASE, ownQuotedPath, -1, storedValue, -1) == CSTR_EQUAL;
}

}  // namespace lmvx
