#include <gtest/gtest.h>

#include <vector>

#include "language_choice.h"

using namespace wren;

namespace {
constexpr LanguageId kEnglishUnitedKingdom = 0x0809;
constexpr LanguageId kGermanSwitzerland = 0x0807;
constexpr LanguageId kGermanAustria = 0x0c07;
constexpr LanguageId kFrench = 0x040c;
}  // namespace

TEST(SupportedLanguage, EveryEnglishIsEnglishAndEveryGermanIsGerman) {
    EXPECT_EQ(SupportedLanguage(kLanguageEnglish), kLanguageEnglish);
    EXPECT_EQ(SupportedLanguage(kEnglishUnitedKingdom), kLanguageEnglish);
    EXPECT_EQ(SupportedLanguage(kLanguageGerman), kLanguageGerman);
    EXPECT_EQ(SupportedLanguage(kGermanSwitzerland), kLanguageGerman);
    EXPECT_EQ(SupportedLanguage(kGermanAustria), kLanguageGerman);
}

TEST(SupportedLanguage, OtherLanguagesAndGarbageAreNoChoice) {
    EXPECT_EQ(SupportedLanguage(0), 0);
    EXPECT_EQ(SupportedLanguage(kFrench), 0);
    EXPECT_EQ(SupportedLanguage(0x10000ul | kLanguageGerman), 0);   // not a 16-bit language id at all
}

TEST(SuggestedLanguage, GermanWindowsSuggestsGermanEverythingElseEnglish) {
    EXPECT_EQ(SuggestedLanguage(kGermanAustria), kLanguageGerman);
    EXPECT_EQ(SuggestedLanguage(kLanguageGerman), kLanguageGerman);
    EXPECT_EQ(SuggestedLanguage(kFrench), kLanguageEnglish);
    EXPECT_EQ(SuggestedLanguage(kEnglishUnitedKingdom), kLanguageEnglish);
    EXPECT_EQ(SuggestedLanguage(0), kLanguageEnglish);
}

TEST(PickLanguageText, GermanTextForAnyGermanEnglishOtherwise) {
    const wchar_t* english = L"Close";
    const wchar_t* german = L"Schlie\u00dfen";
    EXPECT_EQ(PickLanguageText(kLanguageGerman, english, german), german);
    EXPECT_EQ(PickLanguageText(kGermanSwitzerland, english, german), german);
    EXPECT_EQ(PickLanguageText(kLanguageEnglish, english, german), english);
    EXPECT_EQ(PickLanguageText(kFrench, english, german), english);
}

TEST(PickLanguageText, MissingGermanTextFallsBackToEnglish) {
    const wchar_t* english = L"Close";
    EXPECT_EQ(PickLanguageText(kLanguageGerman, english, nullptr), english);
}

TEST(ResourceLanguageOrder, ExactThenDefaultSublanguageThenEnglish) {
    EXPECT_EQ(ResourceLanguageOrder(kGermanSwitzerland),
              (std::vector<LanguageId>{kGermanSwitzerland, kLanguageGerman, kLanguageEnglish}));
}

TEST(ResourceLanguageOrder, NoLanguageIsTriedTwice) {
    EXPECT_EQ(ResourceLanguageOrder(kLanguageGerman), (std::vector<LanguageId>{kLanguageGerman, kLanguageEnglish}));
    EXPECT_EQ(ResourceLanguageOrder(kLanguageEnglish), (std::vector<LanguageId>{kLanguageEnglish}));
}

TEST(ResourceLanguageOrder, NeutralCurrentLanguageLooksForEnglish) {
    EXPECT_EQ(ResourceLanguageOrder(0), (std::vector<LanguageId>{kLanguageEnglish}));
}
