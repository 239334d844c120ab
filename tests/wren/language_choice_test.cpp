#include <gtest/gtest.h>

#include <vector>

#include "language_choice.h"

using namespace wren;

namespace {
constexpr LanguageId kEnglishUnitedKingdom = 0x0809;
constexpr LanguageId kGermanSwitzerland = 0x0807;
constexpr LanguageId kGermanAustria = 0x0c07;
constexpr LanguageId kFrench = 0x040c;

TEST(LanguageChoice, EveryEnglishIsEnglishEveryGermanGermanTheRestNoChoiceAndSuggestedEnglish) {
    const struct {
        unsigned long language;
        LanguageId supported, suggested;
    } cases[] = {
        {kLanguageEnglish, kLanguageEnglish, kLanguageEnglish},
        {kEnglishUnitedKingdom, kLanguageEnglish, kLanguageEnglish},
        {kLanguageGerman, kLanguageGerman, kLanguageGerman},
        {kGermanSwitzerland, kLanguageGerman, kLanguageGerman},
        {kGermanAustria, kLanguageGerman, kLanguageGerman},
        {0, 0, kLanguageEnglish},
        {kFrench, 0, kLanguageEnglish},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SupportedLanguage(c.language), c.supported) << c.language;
        EXPECT_EQ(SuggestedLanguage(static_cast<LanguageId>(c.language)), c.suggested) << c.language;
    }
    EXPECT_EQ(SupportedLanguage(0x10000ul | kLanguageGerman), 0);   // not a 16-bit language id at all
}

TEST(PickLanguageText, GermanTextForAnyGermanEnglishOtherwiseAndWhenGermanIsMissing) {
    const wchar_t* english = L"Close";
    const wchar_t* german = L"Schlie\u00dfen";
    EXPECT_EQ(PickLanguageText(kLanguageGerman, english, german), german);
    EXPECT_EQ(PickLanguageText(kGermanSwitzerland, english, german), german);
    EXPECT_EQ(PickLanguageText(kLanguageEnglish, english, german), english);
    EXPECT_EQ(PickLanguageText(kFrench, english, german), english);
    EXPECT_EQ(PickLanguageText(kLanguageGerman, english, nullptr), english);
}

TEST(ResourceLanguageOrder, ExactThenDefaultSublanguageThenEnglishNoneTwice) {
    using Order = std::vector<LanguageId>;
    EXPECT_EQ(ResourceLanguageOrder(kGermanSwitzerland), (Order{kGermanSwitzerland, kLanguageGerman, kLanguageEnglish}));
    EXPECT_EQ(ResourceLanguageOrder(kLanguageGerman), (Order{kLanguageGerman, kLanguageEnglish}));
    EXPECT_EQ(ResourceLanguageOrder(kLanguageEnglish), (Order{kLanguageEnglish}));
    EXPECT_EQ(ResourceLanguageOrder(0), (Order{kLanguageEnglish})) << "a neutral language looks for English";
}

}  // namespace
