// Small wide-string helpers shared by the library's parts.
#pragma once
#include <cstddef>
#include <string>

namespace finch {

// Copies as much of source as fits into destination (count characters including the terminator) and
// always terminates; a null source copies "". Nothing is written when count is 0.
void CopyBounded(wchar_t* destination, size_t count, const wchar_t* source);

// The length of text once trailing CR, LF and blanks are left off (system messages end in ".\r\n").
size_t LengthWithoutTrailingLineBreaks(const wchar_t* text, size_t length);

// The single text of a warning box that has no separate headline: headline, blank line, message;
// just the one that is there when the other is empty or null.
std::wstring ComposeWarningMessage(const wchar_t* title, const wchar_t* text);

}  // namespace finch
