// Which language copy of a resource the language module takes.
#include "libs/finch/resource_language.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(PickResourceLanguage, WantedThenAnotherVariantOfItThenEnglishThenAnyThenNothing) {
    const LANGID EnglishUs = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    const LANGID EnglishUk = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_UK);
    const LANGID German = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);
    const LANGID GermanAustria = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN_AUSTRIAN);
    const LANGID French = MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH);
    const LANGID Japanese = MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT);
    const struct {
        LANGID wanted;
        std::vector<LANGID> copies;
        LANGID picked;
    } cases[] = {
        {German, {EnglishUs, German}, German},          {EnglishUs, {German, EnglishUs}, EnglishUs},
        {German, {EnglishUs, GermanAustria}, GermanAustria},
        {German, {French, EnglishUs}, EnglishUs},       {German, {French, EnglishUk}, EnglishUk},
        {Japanese, {EnglishUk, EnglishUs}, EnglishUs},  {German, {French, Japanese}, French},
    };
    for (const auto& c : cases) EXPECT_EQ(c.picked, finch::PickResourceLanguage(c.wanted, c.copies)) << c.wanted;
    EXPECT_FALSE(finch::PickResourceLanguage(German, {}).has_value());
}

}  // namespace
