// The memory search's filter: a string matches when the shell's wildcard match of "*<find text>*" accepts
// it. Most find texts are plain words, and for them the match is a case-insensitive "contains", answered
// here without the shell (the shell's match costs far more than the scan of the string itself).
#pragma once
#include <string>
#include <string_view>

namespace lmvx {

class SearchPattern {
public:
    explicit SearchPattern(std::wstring_view findText);
    // "*<find text>*", for the shell's match.
    const std::wstring& ShellPattern() const { return shellPattern_; }
    // True when Matches answers alone: the text is printable ASCII without wildcards, ";" or blanks.
    bool IsPlain() const { return plain_; }
    // For a plain pattern: whether text contains the find text, ASCII letters compared without case.
    bool Matches(std::wstring_view text) const;

private:
    std::wstring shellPattern_;
    std::wstring folded_;
    bool plain_ = true;
};

}  // namespace lmvx
