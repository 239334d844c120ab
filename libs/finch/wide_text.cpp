#include "wide_text.h"

namespace finch {

void CopyBounded(wchar_t* destination, size_t count, const wchar_t* source) {
    if (destination == nullptr || count == 0) return;
    size_t length = 0;
    if (source != nullptr) {
        while (length + 1 < count && source[length] != L'\0') {
            destination[length] = source[length];
            ++length;
        }
    }
    destination[length] = L'\0';
}

size_t LengthWithoutTrailingLineBreaks(const wchar_t* text, size_t length) {
    if (text == nullptr) return 0;
    while (length > 0) {
        const wchar_t last = text[length - 1];
        if (last != L'\r' && last != L'\n' && last != L' ') break;
        --length;
    }
    return length;
}

std::wstring ComposeWarningMessage(const wchar_t* title, const wchar_t* text) {
    const std::wstring headline = title != nullptr ? title : L"";
    const std::wstring message = text != nullptr ? text : L"";
    if (headline.empty()) return message;
    if (message.empty()) return headline;
    return headline + L"\n\n" + message;
}

}  // namespace finch
