#include "memory/search_pattern.h"

#include <gtest/gtest.h>

namespace {

TEST(SearchPattern, PlainTextsMatchAsCaseInsensitiveContains) {
    const lmvx::SearchPattern abc(L"abc");
    ASSERT_TRUE(abc.IsPlain());
    EXPECT_EQ(abc.ShellPattern(), L"*abc*");
    EXPECT_TRUE(abc.Matches(L"xxABCxx"));
    EXPECT_TRUE(abc.Matches(L"abc"));
    EXPECT_TRUE(abc.Matches(L"xxaBc"));
    EXPECT_FALSE(abc.Matches(L"ab"));
    EXPECT_FALSE(abc.Matches(L"a_bc"));
    const lmvx::SearchPattern empty(L"");
    EXPECT_TRUE(empty.IsPlain());
    EXPECT_TRUE(empty.Matches(L"anything"));
}

TEST(SearchPattern, WildcardsListsBlanksAndNonAsciiGoToTheShell) {
    for (const wchar_t* text : {L"a*c", L"a?c", L"a;b", L"two words", L"\u00c4rger"}) {
        EXPECT_FALSE(lmvx::SearchPattern(text).IsPlain()) << text;
    }
}

}  // namespace
