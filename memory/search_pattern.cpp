#include "memory/search_pattern.h"

namespace lmvx {
namespace {

wchar_t FoldAscii(wchar_t c) { return (c >= L'A' && c <= L'Z') ? static_cast<wchar_t>(c - L'A' + L'a') : c; }

}  // namespace

SearchPattern::SearchPattern(std::wstring_view findText) : shellPattern_(L"*" + std::wstring(findText) + L"*") {
    for (wchar_t c : findText) {
        // The shell treats these specially (wildcards, pattern lists, trimmed blanks) or folds case by locale.
        if (c <= L' ' || c > L'~' || c == L'*' || c == L'?' || c == L';') plain_ = false;
        folded_ += FoldAscii(c);
    }
}

bool SearchPattern::Matches(std::wstring_view text) const {
    if (folded_.empty()) return true;
    if (text.size() < folded_.size()) return false;
    for (size_t start = 0; start + folded_.size() <= text.size(); ++start) {
        size_t k = 0;
        while (k < folded_.size() && FoldAscii(text[start + k]) == folded_[k]) ++k;
        if (k == folded_.size()) return true;
    }
    return false;
}

}  // namespace lmvx
