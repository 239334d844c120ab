// The language choice: its default, its persistence and the fixed two-language texts.
#include <gtest/gtest.h>

#include "language_choice.h"
#include "test_application.h"
#include "wren.h"

namespace {

class LanguageSettings : public ::testing::Test {
protected:
    void SetUp() override { wren::LoadLangSettings(); }   // nothing stored yet: back to English
    void TearDown() override { wren::LoadLangSettings(); }

    ScopedTestApplication application_{L"WrenLanguageTests"};
};

TEST_F(LanguageSettings, EnglishWithoutAChoiceAndEachSupportedChoiceStoredAsADwordAndLoaded) {
    EXPECT_EQ(wren::LoadLangSettings(), 0);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
    ASSERT_EQ(wren::SetCurrentLangID(wren::kLanguageGerman), 1);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageGerman);
    const RawValue stored = ReadRawValue(L"LanguageID");
    ASSERT_TRUE(stored.exists);
    EXPECT_EQ(stored.type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
    wren::SetCurrentLangID(wren::kLanguageEnglish);   // switching back persists too
    EXPECT_EQ(wren::LoadLangSettings(), 1);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
    wren::regOptions.SetOptionDWORD(L"LanguageID", wren::kLanguageGerman);   // stored by someone else
    EXPECT_EQ(wren::LoadLangSettings(), 1);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageGerman);
}

TEST_F(LanguageSettings, AnUnsupportedLanguageIsNeitherStoredNorLoaded) {
    EXPECT_EQ(wren::SetCurrentLangID(0x040c), 0);   // French
    EXPECT_FALSE(ReadRawValue(L"LanguageID").exists);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
    wren::regOptions.SetOptionDWORD(L"LanguageID", 0x040c);
    EXPECT_EQ(wren::LoadLangSettings(), 0);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
}

TEST_F(LanguageSettings, HardcodedTextFollowsTheCurrentLanguage) {
    const wchar_t* english = L"Terminate";
    const wchar_t* german = L"Beenden";
    wren::SetCurrentLangID(wren::kLanguageEnglish);
    EXPECT_EQ(wren::HardcodeLangString(english, german), english);
    wren::SetCurrentLangID(wren::kLanguageGerman);
    EXPECT_EQ(wren::HardcodeLangString(english, german), german);
}

}  // namespace
