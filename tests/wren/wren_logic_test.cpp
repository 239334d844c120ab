// The runtime library's pure logic: centring arithmetic, the language choice, stored values and the
// Windows version lines.
#include <gtest/gtest.h>

#include <vector>

#include "center_math.h"
#include "language_choice.h"
#include "os_version.h"
#include "stored_value.h"

using namespace wren;

namespace {

Box Sized(int left, int top, int width, int height) { return {left, top, left + width, top + height}; }

const Box kWorkArea = Sized(0, 0, 1280, 770);

// Where a window of the size lands; its old position must not count.
std::pair<int, int> Placed(int width, int height, const Box& over, const Box& workArea = kWorkArea) {
    const Position position = CenteredPosition(Sized(900, 700, width, height), over, workArea);
    return {position.x, position.y};
}

TEST(CenteredPosition, CentresOnTheOtherWindowOrWorkAreaAndKeepsInsideTheWorkArea) {
    // Centre on centre, with integer halves: 200 + (640 - 300) / 2, 150 + (480 - 200) / 2.
    EXPECT_EQ(Placed(300, 200, Sized(200, 150, 640, 480)), std::make_pair(370, 290));
    // Sticking out right or bottom, left or top: moved back inside.
    EXPECT_EQ(Placed(300, 200, Sized(kWorkArea.right - 50, kWorkArea.bottom - 40, 100, 80)),
              std::make_pair(kWorkArea.right - 300, kWorkArea.bottom - 200));
    EXPECT_EQ(Placed(300, 200, Sized(-60, -30, 100, 80)), std::make_pair(0, 0));
    // Larger than the work area: the caption stays reachable at its top left.
    EXPECT_EQ(Placed(kWorkArea.right * 2, kWorkArea.bottom * 2, kWorkArea), std::make_pair(0, 0));
    // A monitor left of and above the primary one.
    EXPECT_EQ(Placed(200, 100, Sized(-1500, -200, 800, 600), Sized(-1920, -300, 1920, 1040)), std::make_pair(-1200, 50));
}

constexpr LanguageId kEnglishUnitedKingdom = 0x0809;
constexpr LanguageId kGermanSwitzerland = 0x0807;
constexpr LanguageId kGermanAustria = 0x0c07;
constexpr LanguageId kFrench = 0x040c;

// The texts of a choice: German for any German, English otherwise and when the German one is missing.
TEST(LanguageChoice, EveryEnglishIsEnglishEveryGermanGermanTheRestNoChoiceAndSuggestedEnglish) {
    const wchar_t* english = L"Close";
    const wchar_t* german = L"Schlie\u00dfen";
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
        const LanguageId language = static_cast<LanguageId>(c.language);
        EXPECT_EQ(PickLanguageText(language, english, german), c.supported == kLanguageGerman ? german : english) << c.language;
    }
    EXPECT_EQ(SupportedLanguage(0x10000ul | kLanguageGerman), 0);   // not a 16-bit language id at all
    EXPECT_EQ(PickLanguageText(kLanguageGerman, english, nullptr), english);
}

TEST(ResourceLanguageOrder, ExactThenDefaultSublanguageThenEnglishNoneTwice) {
    using Order = std::vector<LanguageId>;
    EXPECT_EQ(ResourceLanguageOrder(kGermanSwitzerland), (Order{kGermanSwitzerland, kLanguageGerman, kLanguageEnglish}));
    EXPECT_EQ(ResourceLanguageOrder(kLanguageGerman), (Order{kLanguageGerman, kLanguageEnglish}));
    EXPECT_EQ(ResourceLanguageOrder(kLanguageEnglish), (Order{kLanguageEnglish}));
    EXPECT_EQ(ResourceLanguageOrder(0), (Order{kLanguageEnglish})) << "a neutral language looks for English";
}

constexpr unsigned long kTypeString = 1;   // REG_SZ
constexpr unsigned long kTypeQword = 11;   // REG_QWORD

TEST(StoredValue, OnlyAFourByteDwordIsStoredValueAndOnlyBinaryUpToTheBufferFits) {
    constexpr unsigned long kStored = 0x12345678, kDefault = 1000;
    EXPECT_EQ(DwordOrDefault(kStoredTypeDword, 4, kStored, kDefault), kStored);
    const std::pair<unsigned long, unsigned long> others[] = {
        {kTypeString, 4}, {kStoredTypeBinary, 4}, {kTypeQword, 8}, {kStoredTypeDword, 2}, {kStoredTypeDword, 0}};
    for (const auto& [type, size] : others) EXPECT_EQ(DwordOrDefault(type, size, kStored, kDefault), kDefault) << type << "/" << size;
    for (unsigned long size : {52ul, 48ul, 0ul}) EXPECT_TRUE(BinaryBlockFits(kStoredTypeBinary, size, 52)) << size;
    EXPECT_FALSE(BinaryBlockFits(kStoredTypeBinary, 56, 52));
    EXPECT_FALSE(BinaryBlockFits(kStoredTypeDword, 4, 52));
    EXPECT_FALSE(BinaryBlockFits(kTypeString, 52, 52));
    // The key: company, then application, then Settings; none without a name.
    EXPECT_EQ(SettingsKeyPath(L"Lumivex"), L"Software\\Orvane Software\\Lumivex\\Settings");
    EXPECT_TRUE(SettingsKeyPath(L"").empty());
}

TEST(OsVersion, VistaIsSixAndLaterAndWindows2000ExactlyFivePointZero) {
    EXPECT_FALSE(IsVersionVistaOrHigher(5));
    EXPECT_TRUE(IsVersionVistaOrHigher(6));
    EXPECT_TRUE(IsVersionVistaOrHigher(10));
    EXPECT_TRUE(IsVersionWindows2000(5, 0));
    const std::pair<int, int> others[] = {{5, 1}, {5, 2}, {4, 0}, {6, 0}};   // XP, Server 2003, NT 4, Vista
    for (const auto& [major, minor] : others) EXPECT_FALSE(IsVersionWindows2000(major, minor)) << major << "." << minor;
}

}  // namespace
