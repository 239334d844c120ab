// The system's message text for an error code.
#include "platform/finch.h"
#include "wide_text.h"

#include <iterator>

const wchar_t* APIP_GetErrorCodeStr(DWORD code) {
    // One buffer per thread, so threads that report errors at the same time do not overwrite each other.
    thread_local wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                                        0, text, static_cast<DWORD>(std::size(text)), nullptr);
    text[finch::LengthWithoutTrailingLineBreaks(text, length)] = L'\0';
    return text;
}
