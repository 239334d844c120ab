// The language choice: its default, its persistence, the fixed two-language texts, and the language dialogs
// driven by a second thread the way a user would answer them.
#include <gtest/gtest.h>

#include "dialog_driver.h"
#include "language_choice.h"
#include "test_application.h"
#include "wren.h"
#include "wren_resource.h"

namespace {

class LanguageDialogs : public ::testing::Test {
protected:
    void SetUp() override { wren::LoadLangSettings(); }
    void TearDown() override { wren::LoadLangSettings(); }

    // Runs the dialog while a user acts on it, and returns the dialog's result.
    static int Answer(int (*dialog)(HWND), const DialogDriver::Action& act) {
        DialogDriver user(act);
        const int result = dialog(nullptr);
        EXPECT_TRUE(user.Acted());
        return result;
    }
    static DialogDriver::Action Choose(int button, int closeWith = IDOK) {
        return [=](HWND dialog) {
            Click(dialog, button);
            Click(dialog, closeWith);
        };
    }

    ScopedTestApplication application_{L"WrenLanguageDialogTests"};
};

TEST_F(LanguageDialogs, EnglishWithoutAChoiceAndEachSupportedChoiceStoredAsADwordAndLoaded) {
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

TEST_F(LanguageDialogs, AnUnsupportedLanguageIsNeitherStoredNorLoaded) {
    EXPECT_EQ(wren::SetCurrentLangID(0x040c), 0);   // French
    EXPECT_FALSE(ReadRawValue(L"LanguageID").exists);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
    wren::regOptions.SetOptionDWORD(L"LanguageID", 0x040c);
    EXPECT_EQ(wren::LoadLangSettings(), 0);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
}

TEST_F(LanguageDialogs, HardcodedTextFollowsTheCurrentLanguage) {
    const wchar_t* english = L"Terminate";
    const wchar_t* german = L"Beenden";
    wren::SetCurrentLangID(wren::kLanguageEnglish);
    EXPECT_EQ(wren::HardcodeLangString(english, german), english);
    wren::SetCurrentLangID(wren::kLanguageGerman);
    EXPECT_EQ(wren::HardcodeLangString(english, german), german);
}

TEST_F(LanguageDialogs, FirstStartChoiceIsStoredAndUsedAndClosingWithoutOneStoresNothing) {
    ASSERT_EQ(wren::LoadLangSettings(), 0);
    EXPECT_EQ(Answer(wren::SelectLanguageDialog, [](HWND dialog) { SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0); }), 0);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
    EXPECT_FALSE(ReadRawValue(L"LanguageID").exists);
    EXPECT_EQ(wren::LoadLangSettings(), 0);

    std::wstring englishName, germanName;
    EXPECT_EQ(Answer(wren::SelectLanguageDialog, [&](HWND dialog) {
                  englishName = WindowText(GetDlgItem(dialog, IDC_WREN_LANGUAGE_ENGLISH));
                  germanName = WindowText(GetDlgItem(dialog, IDC_WREN_LANGUAGE_GERMAN));
                  Choose(IDC_WREN_LANGUAGE_GERMAN)(dialog);
              }), 1);
    EXPECT_EQ(englishName, L"English");
    EXPECT_EQ(germanName, L"Deutsch");
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageGerman);
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
    EXPECT_EQ(wren::LoadLangSettings(), 1) << "the next start finds the choice";

    EXPECT_EQ(Answer(wren::SelectLanguageDialog, Choose(IDC_WREN_LANGUAGE_ENGLISH)), 1);
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageEnglish);
}

TEST_F(LanguageDialogs, SettingsChangeIsStoredForTheNextStartOnly) {
    wren::SetCurrentLangID(wren::kLanguageEnglish);
    bool englishWasPreselected = false;
    std::wstring caption;
    EXPECT_EQ(Answer(wren::LanguageSettingsDialog, [&](HWND dialog) {
                  englishWasPreselected = IsDlgButtonChecked(dialog, IDC_WREN_LANGUAGE_ENGLISH) == BST_CHECKED;
                  caption = WindowText(dialog);
                  Choose(IDC_WREN_LANGUAGE_GERMAN)(dialog);
              }), 1);
    EXPECT_TRUE(englishWasPreselected);
    EXPECT_EQ(caption, L"Language Settings");
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish) << "the running program keeps its language";
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
    EXPECT_EQ(wren::LoadLangSettings(), 1);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageGerman);
}

TEST_F(LanguageDialogs, SettingsDialogSpeaksGermanAndCancelOrTheSameLanguageChangesNothing) {
    wren::SetCurrentLangID(wren::kLanguageGerman);
    bool germanWasPreselected = false;
    std::wstring caption;
    EXPECT_EQ(Answer(wren::LanguageSettingsDialog, [&](HWND dialog) {
                  germanWasPreselected = IsDlgButtonChecked(dialog, IDC_WREN_LANGUAGE_GERMAN) == BST_CHECKED;
                  caption = WindowText(dialog);
                  Choose(IDC_WREN_LANGUAGE_ENGLISH, IDCANCEL)(dialog);
              }), 0);
    EXPECT_TRUE(germanWasPreselected);
    EXPECT_EQ(caption, L"Spracheinstellungen");
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
    EXPECT_EQ(Answer(wren::LanguageSettingsDialog, [](HWND dialog) { Click(dialog, IDOK); }), 0);
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
}

}  // namespace
