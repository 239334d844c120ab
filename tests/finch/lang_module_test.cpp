// The language module against this program's own test resources (lang_test.rc).
#include "platform/finch.h"
#include "libs/finch/unique_handle.h"
#include "lang_test_ids.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cwchar>
#include <string>
#include <thread>
#include <vector>

#include "window_texts.h"

namespace {

class LangModuleTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(1, module.Init(GetModuleHandleW(nullptr), L"Lumivex", L"lmvx", UIL_LANGMODULE::English));
    }

    UIL_LANGMODULE module;
};

INT_PTR CALLBACK KeepParameterProcedure(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
        return TRUE;
    }
    return FALSE;
}

// Ends the modal dialog at once with the parameter it was given as the result.
INT_PTR CALLBACK EndAtOnceProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) EndDialog(dialog, GetWindowLongPtrW(dialog, GWLP_USERDATA));
        return TRUE;
    default:
        return FALSE;
    }
}

using lmvx_test::WindowText;

std::wstring MenuText(HMENU menu, UINT item, UINT flags) {
    wchar_t text[256] = {};
    GetMenuStringW(menu, item, text, 256, flags);
    return text;
}

TEST_F(LangModuleTest, EnglishString) {
    EXPECT_EQ(UIL_LANGMODULE::English, module.GetLanguage());
    EXPECT_STREQ(L"Hello", module.GetLangString(IDS_TEST_GREETING));
    EXPECT_STREQ(L"Second block", module.GetLangString(IDS_TEST_OTHER_BLOCK));
}

TEST_F(LangModuleTest, GermanStringWithUmlauts) {
    ASSERT_EQ(1, module.SelectLanguage(UIL_LANGMODULE::German));
    EXPECT_EQ(UIL_LANGMODULE::German, module.GetLanguage());
    EXPECT_STREQ(L"Hallo", module.GetLangString(IDS_TEST_GREETING));
    EXPECT_STREQ(L"Prozesspriorit\u00e4t \u00e4ndern", module.GetLangString(IDS_TEST_UMLAUTS));
    EXPECT_STREQ(L"Zweiter Block", module.GetLangString(IDS_TEST_OTHER_BLOCK));
}

TEST_F(LangModuleTest, SwitchingBackGivesEnglishAgain) {
    module.SelectLanguage(UIL_LANGMODULE::German);
    module.SelectLanguage(UIL_LANGMODULE::English);
    EXPECT_STREQ(L"%d Processes", module.GetLangString(IDS_TEST_FORMAT));
}

TEST_F(LangModuleTest, StringOnlyInEnglishFallsBackToEnglish) {
    module.SelectLanguage(UIL_LANGMODULE::German);
    EXPECT_STREQ(L"Only in English", module.GetLangString(IDS_TEST_ENGLISH_ONLY));
}

TEST_F(LangModuleTest, UnknownIdGivesEmptyText) {
    for (LANGID language : {UIL_LANGMODULE::English, UIL_LANGMODULE::German}) {
        module.SelectLanguage(language);
        const wchar_t* inKnownBlock = module.GetLangString(IDS_TEST_MISSING_IN_BLOCK);
        const wchar_t* inMissingBlock = module.GetLangString(IDS_TEST_MISSING_BLOCK);
        ASSERT_NE(nullptr, inKnownBlock);
        ASSERT_NE(nullptr, inMissingBlock);
        EXPECT_STREQ(L"", inKnownBlock);
        EXPECT_STREQ(L"", inMissingBlock);
    }
}

TEST(LangModuleWithoutInit, GivesEmptyTextsAndNoResources) {
    UIL_LANGMODULE module;
    ASSERT_NE(nullptr, module.GetLangString(IDS_TEST_GREETING));
    EXPECT_STREQ(L"", module.GetLangString(IDS_TEST_GREETING));
    EXPECT_EQ(0, module.SelectLanguage(UIL_LANGMODULE::German));
    EXPECT_EQ(nullptr, module.LoadLangMenu(IDM_TEST_MENU));
    EXPECT_EQ(nullptr, module.LoadDialogParam(IDD_TEST_DIALOG, nullptr, KeepParameterProcedure, 0));
    EXPECT_EQ(0, module.Init(nullptr, L"Lumivex", L"lmvx", UIL_LANGMODULE::English));
}

TEST_F(LangModuleTest, StringsStayValidAfterALanguageSwitch) {
    const wchar_t* english = module.GetLangString(IDS_TEST_GREETING);
    module.SelectLanguage(UIL_LANGMODULE::German);
    module.SelectLanguage(UIL_LANGMODULE::English);
    module.SelectLanguage(UIL_LANGMODULE::German);
    EXPECT_STREQ(L"Hello", english);
}

TEST_F(LangModuleTest, GermanDialog) {
    module.SelectLanguage(UIL_LANGMODULE::German);
    finch::UniqueWindow dialog(module.LoadDialogParam(IDD_TEST_DIALOG, nullptr, KeepParameterProcedure, 1234));
    ASSERT_TRUE(dialog);
    EXPECT_EQ(L"Warnung", WindowText(dialog.Get()));
    EXPECT_EQ(L"Diese Warnung nicht mehr anzeigen (Schlie\u00dfen).",
              WindowText(GetDlgItem(dialog.Get(), IDC_TEST_LABEL)));
    EXPECT_EQ(1234, GetWindowLongPtrW(dialog.Get(), GWLP_USERDATA));
}

TEST_F(LangModuleTest, EnglishDialog) {
    finch::UniqueWindow dialog(module.LoadDialogParam(IDD_TEST_DIALOG, nullptr, KeepParameterProcedure, 0));
    ASSERT_TRUE(dialog);
    EXPECT_EQ(L"Do not show this warning again.", WindowText(GetDlgItem(dialog.Get(), IDC_TEST_LABEL)));
}

TEST_F(LangModuleTest, DialogOnlyInEnglishFallsBackToEnglish) {
    module.SelectLanguage(UIL_LANGMODULE::German);
    finch::UniqueWindow dialog(
        module.LoadDialogParam(IDD_TEST_ENGLISH_ONLY_DIALOG, nullptr, KeepParameterProcedure, 0));
    ASSERT_TRUE(dialog);
    EXPECT_EQ(L"English only", WindowText(dialog.Get()));
}

TEST_F(LangModuleTest, ModalDialogReturnsItsResult) {
    module.SelectLanguage(UIL_LANGMODULE::German);
    EXPECT_EQ(77, module.ShowDialogParam(IDD_TEST_DIALOG, nullptr, EndAtOnceProcedure, 77));
}

TEST_F(LangModuleTest, UnknownDialogIsNotCreated) {
    EXPECT_EQ(nullptr, module.LoadDialogParam(999, nullptr, KeepParameterProcedure, 0));
    EXPECT_EQ(-1, module.ShowDialogParam(999, nullptr, EndAtOnceProcedure, 0));
}

TEST_F(LangModuleTest, GermanMenu) {
    module.SelectLanguage(UIL_LANGMODULE::German);
    finch::UniqueMenu menu(module.LoadLangMenu(IDM_TEST_MENU));
    ASSERT_TRUE(menu);
    EXPECT_EQ(L"&Datei", MenuText(menu.Get(), 0, MF_BYPOSITION));
    HMENU file = GetSubMenu(menu.Get(), 0);
    ASSERT_NE(nullptr, file);
    EXPECT_EQ(L"\u00d6&ffnen", MenuText(file, IDM_TEST_OPEN, MF_BYCOMMAND));
    EXPECT_EQ(L"&Schlie\u00dfen", MenuText(file, IDM_TEST_CLOSE, MF_BYCOMMAND));
}

TEST_F(LangModuleTest, EnglishMenu) {
    finch::UniqueMenu menu(module.LoadLangMenu(IDM_TEST_MENU));
    ASSERT_TRUE(menu);
    EXPECT_EQ(L"&File", MenuText(menu.Get(), 0, MF_BYPOSITION));
}

TEST_F(LangModuleTest, UnknownMenuIsNull) { EXPECT_EQ(nullptr, module.LoadLangMenu(999)); }

// Readers on several threads while the language switches: every answer is one language's text, never
// null and never torn.
TEST_F(LangModuleTest, ConcurrentReadersWhileTheLanguageSwitches) {
    const std::vector<UINT> ids = {IDS_TEST_GREETING, IDS_TEST_UMLAUTS, IDS_TEST_FORMAT, IDS_TEST_ENGLISH_ONLY,
                                   IDS_TEST_OTHER_BLOCK, IDS_TEST_MISSING_IN_BLOCK};
    std::vector<std::wstring> english, german;
    for (UINT id : ids) english.push_back(module.GetLangString(id));
    module.SelectLanguage(UIL_LANGMODULE::German);
    for (UINT id : ids) german.push_back(module.GetLangString(id));
    module.SelectLanguage(UIL_LANGMODULE::English);

    std::atomic<bool> stop{false};
    std::atomic<int> wrongAnswers{0};
    std::atomic<int> reads{0};
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 4; ++reader) {
        readers.emplace_back([&] {
            while (!stop.load()) {
                for (size_t i = 0; i < ids.size(); ++i) {
                    const wchar_t* text = module.GetLangString(ids[i]);
                    if (text == nullptr || (english[i] != text && german[i] != text)) ++wrongAnswers;
                    ++reads;
                }
            }
        });
    }
    // Switch until the readers have read plenty while switches happen, however the threads are scheduled.
    for (int round = 0; round < 200 || reads.load() < 2000; ++round) {
        module.SelectLanguage(round % 2 == 0 ? UIL_LANGMODULE::German : UIL_LANGMODULE::English);
        std::this_thread::yield();
    }
    stop = true;
    for (std::thread& reader : readers) reader.join();
    EXPECT_EQ(0, wrongAnswers.load());
    EXPECT_GT(reads.load(), 0);
}

}  // namespace
