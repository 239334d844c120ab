// Which language copy of a resource the language module takes.
#include "libs/finch/resource_language.h"

#include <gtest/gtest.h>

namespace {

const LANGID EnglishUs = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
const LANGID EnglishUk = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_UK);
const LANGID German = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);
const LANGID GermanAustria = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN_AUSTRIAN);
const LANGID French = MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH);
const LANGID Japanese = MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT);

TEST(PickResourceLanguage, WantedLanguageWins) {
    EXPECT_EQ(German, finch::PickResourceLanguage(German, {EnglishUs, German}));
    EXPECT_EQ(EnglishUs, finch::PickResourceLanguage(EnglishUs, {German, EnglishUs}));
}

TEST(PickResourceLanguage, AnotherVariantOfTheWantedLanguageComesNext) {
    EXPECT_EQ(GermanAustria, finch::PickResourceLanguage(German, {EnglishUs, GermanAustria}));
}

TEST(PickResourceLanguage, FallsBackToEnglish) {
    EXPECT_EQ(EnglishUs, finch::PickResourceLanguage(German, {French, EnglishUs}));
    EXPECT_EQ(EnglishUk, finch::PickResourceLanguage(German, {French, EnglishUk}));
    EXPECT_EQ(EnglishUs, finch::PickResourceLanguage(Japanese, {EnglishUk, EnglishUs}));
}

TEST(PickResourceLanguage, ThenToAnyLanguage) {
    EXPECT_EQ(French, finch::PickResourceLanguage(German, {French, Japanese}));
}

TEST(PickResourceLanguage, NothingWhenNoCopyExists) {
    EXPECT_FALSE(finch::PickResourceLanguage(German, {}).has_value());
}

}  // namespace
