#include "text_compare.h"

#include <windows.h>

namespace proclist {

int CompareTextDefaultLocale(const std::wstring& a, const std::wstring& b) {
    switch (CompareStringW(0, 0, a.c_str(), -1, b.c_str(), -1)) {
    case CSTR_LESS_THAN: return -1;
    case CSTR_GREATER_THAN: return 1;
    default: return 0;  // CSTR_EQUAL, or 0 when the comparison failed
    }
}

}  // namespace proclist
