// Bounded wide formatted print with the Windows conventions (%s takes a wide string, %I64u, %.2d ...).
#include "platform/finch.h"

#include <cstdio>
#include <cwchar>

int APIP_FormatStringV(wchar_t* buffer, size_t bufferBytes, const wchar_t* format, va_list args) {
    // Only whole characters fit: an odd last byte stays untouched.
    const size_t capacity = bufferBytes / sizeof(wchar_t);
    if (buffer == nullptr || capacity == 0) return 0;
    buffer[0] = L'\0';
    if (format == nullptr) return 0;

    // msvcrt's printf family, not the C99 one libstdc++ may route vswprintf to. Measuring first tells an
    // overflow from a malformed format, for which _vsnwprintf also returns -1.
    va_list measureArgs;
    va_copy(measureArgs, args);
    const int needed = _vscwprintf(format, measureArgs);
    va_end(measureArgs);
    if (needed < 0) return 0;

    const size_t room = capacity - 1;
    _vsnwprintf(buffer, room, format, args);
    size_t length = static_cast<size_t>(needed) < room ? static_cast<size_t>(needed) : room;
    // A cut must not leave the first half of a surrogate pair at the end.
    if (length < static_cast<size_t>(needed) && length > 0 && IS_HIGH_SURROGATE(buffer[length - 1])) --length;
    buffer[length] = L'\0';
    return static_cast<int>(length);
}

int APIP_FormatString(wchar_t* buffer, size_t bufferBytes, const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    const int written = APIP_FormatStringV(buffer, bufferBytes, format, args);
    va_end(args);
    return written;
}
