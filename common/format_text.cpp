#include "common/format_text.h"

#include <cstdarg>

#include "finch.h"

namespace lmvx {

std::wstring FormatText(const wchar_t* format, ...) {
    wchar_t text[1200];
    va_list arguments;
    va_start(arguments, format);
    APIP_FormatStringV(text, sizeof text, format, arguments);
    va_end(arguments);
    return text;
}

}  // namespace lmvx
