// The language dialogs, driven by a second thread the way a user would answer them.
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

    ScopedTestApplication application_{L"WrenLanguageDialogTests"};
};

TEST_F(LanguageDialogs, FirstStartChoiceOfDeutschIsStoredAndUsed) {
    ASSERT_EQ(wren::LoadLangSettings(), 0);
    std::wstring englishName, germanName;
    int result = 0;
    {
        DialogDriver user([&](HWND dialog) {
            englishName = WindowText(GetDlgItem(dialog, IDC_WREN_LANGUAGE_ENGLISH));
            germanName = WindowText(GetDlgItem(dialog, IDC_WREN_LANGUAGE_GERMAN));
            Click(dialog, IDC_WREN_LANGUAGE_GERMAN);
            Click(dialog, IDOK);
        });
        result = wren::SelectLanguageDialog(nullptr);
        EXPECT_TRUE(user.Acted());
    }
    EXPECT_EQ(result, 1);
    EXPECT_EQ(englishName, L"English");
    EXPECT_EQ(germanName, L"Deutsch");
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageGerman);
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
    EXPECT_EQ(wren::LoadLangSettings(), 1) << "the next start finds the choice";
}

TEST_F(LanguageDialogs, FirstStartChoiceOfEnglishIsStored) {
    int result = 0;
    {
        DialogDriver user([](HWND dialog) {
            Click(dialog, IDC_WREN_LANGUAGE_ENGLISH);
            Click(dialog, IDOK);
        });
        result = wren::SelectLanguageDialog(nullptr);
        EXPECT_TRUE(user.Acted());
    }
    EXPECT_EQ(result, 1);
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageEnglish);
}

TEST_F(LanguageDialogs, FirstStartDialogClosedWithoutChoiceStoresNothing) {
    int result = 1;
    {
        DialogDriver user([](HWND dialog) { SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
        result = wren::SelectLanguageDialog(nullptr);
        EXPECT_TRUE(user.Acted());
    }
    EXPECT_EQ(result, 0);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish);
    EXPECT_FALSE(ReadRawValue(L"LanguageID").exists);
    EXPECT_EQ(wren::LoadLangSettings(), 0);
}

TEST_F(LanguageDialogs, SettingsChangeIsStoredForTheNextStartOnly) {
    wren::SetCurrentLangID(wren::kLanguageEnglish);
    bool englishWasPreselected = false;
    std::wstring caption;
    int result = 0;
    {
        DialogDriver user([&](HWND dialog) {
            englishWasPreselected = IsDlgButtonChecked(dialog, IDC_WREN_LANGUAGE_ENGLISH) == BST_CHECKED;
            caption = WindowText(dialog);
            Click(dialog, IDC_WREN_LANGUAGE_GERMAN);
            Click(dialog, IDOK);
        });
        result = wren::LanguageSettingsDialog(nullptr);
        EXPECT_TRUE(user.Acted());
    }
    EXPECT_EQ(result, 1);
    EXPECT_TRUE(englishWasPreselected);
    EXPECT_EQ(caption, L"Language Settings");
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageEnglish) << "the running program keeps its language";
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
    EXPECT_EQ(wren::LoadLangSettings(), 1);
    EXPECT_EQ(wren::GetCurrentLangID(), wren::kLanguageGerman);
}

TEST_F(LanguageDialogs, SettingsDialogSpeaksGermanAndCancelChangesNothing) {
    wren::SetCurrentLangID(wren::kLanguageGerman);
    bool germanWasPreselected = false;
    std::wstring caption;
    int result = 1;
    {
        DialogDriver user([&](HWND dialog) {
            germanWasPreselected = IsDlgButtonChecked(dialog, IDC_WREN_LANGUAGE_GERMAN) == BST_CHECKED;
            caption = WindowText(dialog);
            Click(dialog, IDC_WREN_LANGUAGE_ENGLISH);
            Click(dialog, IDCANCEL);
        });
        result = wren::LanguageSettingsDialog(nullptr);
        EXPECT_TRUE(user.Acted());
    }
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(germanWasPreselected);
    EXPECT_EQ(caption, L"Spracheinstellungen");
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
}

TEST_F(LanguageDialogs, ConfirmingTheSameLanguageIsNoChange) {
    wren::SetCurrentLangID(wren::kLanguageGerman);
    int result = 1;
    {
        DialogDriver user([](HWND dialog) { Click(dialog, IDOK); });
        result = wren::LanguageSettingsDialog(nullptr);
        EXPECT_TRUE(user.Acted());
    }
    EXPECT_EQ(result, 0);
    EXPECT_EQ(wren::regOptions.GetOptionDWORD(L"LanguageID", 0), wren::kLanguageGerman);
}

}  // namespace
