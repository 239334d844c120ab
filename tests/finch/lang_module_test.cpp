// The language module against this program's own test resources (lang_test.rc).
#include "platform/finch.h"
#include "libs/finch/unique_handle.h"
#include "lang_test_ids.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <tuple>
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
    if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
    return message == WM_INITDIALOG;
}

// Ends the modal dialog at once with the parameter it was given as the result.
INT_PTR CALLBACK EndAtOnceProcedure(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) EndDialog(dialog, lParam);
    return message == WM_INITDIALOG;
}

using lmvx_test::WindowText;

std::wstring MenuText(HMENU menu, UINT item, UINT flags) {
    wchar_t text[256] = {};
    GetMenuStringW(menu, item, text, 256, flags);
    return text;
}

// Each text in the language selected last; a text only in English falls back to it, an unknown id (in a
// known block or in none) gives "", never null.
TEST_F(LangModuleTest, StringsInTheSelectedLanguageWithEnglishFallback) {
    constexpr LANGID English = UIL_LANGMODULE::English, German = UIL_LANGMODULE::German;
    const std::tuple<LANGID, unsigned, const wchar_t*> cases[] = {
        {English, IDS_TEST_GREETING, L"Hello"},          {English, IDS_TEST_OTHER_BLOCK, L"Second block"},
        {German, IDS_TEST_GREETING, L"Hallo"},           {German, IDS_TEST_OTHER_BLOCK, L"Zweiter Block"},
        {German, IDS_TEST_UMLAUTS, L"Prozesspriorit\u00e4t \u00e4ndern"},
        {German, IDS_TEST_ENGLISH_ONLY, L"Only in English"},
        {English, IDS_TEST_FORMAT, L"%d Processes"},     // switching back gives English again
        {English, IDS_TEST_MISSING_IN_BLOCK, L""},       {English, IDS_TEST_MISSING_BLOCK, L""},
        {German, IDS_TEST_MISSING_IN_BLOCK, L""},        {German, IDS_TEST_MISSING_BLOCK, L""},
    };
    for (const auto& [language, id, text] : cases) {
        ASSERT_EQ(1, module.SelectLanguage(language));
        EXPECT_EQ(language, module.GetLanguage());
        const wchar_t* shown = module.GetLangString(id);
        ASSERT_NE(nullptr, shown) << id;
        EXPECT_STREQ(text, shown) << "string " << id << " in language " << language;
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

TEST_F(LangModuleTest, DialogsAndMenusInTheSelectedLanguageDialogsWithEnglishFallback) {
    finch::UniqueWindow english(module.LoadDialogParam(IDD_TEST_DIALOG, nullptr, KeepParameterProcedure, 0));
    ASSERT_TRUE(english);
    EXPECT_EQ(L"Do not show this warning again.", WindowText(GetDlgItem(english.Get(), IDC_TEST_LABEL)));
    finch::UniqueMenu englishMenu(module.LoadLangMenu(IDM_TEST_MENU));
    ASSERT_TRUE(englishMenu);
    EXPECT_EQ(L"&File", MenuText(englishMenu.Get(), 0, MF_BYPOSITION));
    EXPECT_EQ(nullptr, module.LoadLangMenu(999));

    module.SelectLanguage(UIL_LANGMODULE::German);
    finch::UniqueWindow german(module.LoadDialogParam(IDD_TEST_DIALOG, nullptr, KeepParameterProcedure, 1234));
    ASSERT_TRUE(german);
    EXPECT_EQ(L"Warnung", WindowText(german.Get()));
    EXPECT_EQ(L"Diese Warnung nicht mehr anzeigen (Schlie\u00dfen).",
              WindowText(GetDlgItem(german.Get(), IDC_TEST_LABEL)));
    EXPECT_EQ(1234, GetWindowLongPtrW(german.Get(), GWLP_USERDATA));
    finch::UniqueWindow fallback(
        module.LoadDialogParam(IDD_TEST_ENGLISH_ONLY_DIALOG, nullptr, KeepParameterProcedure, 0));
    ASSERT_TRUE(fallback);
    EXPECT_EQ(L"English only", WindowText(fallback.Get()));
    EXPECT_EQ(77, module.ShowDialogParam(IDD_TEST_DIALOG, nullptr, EndAtOnceProcedure, 77)) << "a modal dialog's result";
    EXPECT_EQ(nullptr, module.LoadDialogParam(999, nullptr, KeepParameterProcedure, 0)) << "an unknown dialog";
    EXPECT_EQ(-1, module.ShowDialogParam(999, nullptr, EndAtOnceProcedure, 0));
    finch::UniqueMenu menu(module.LoadLangMenu(IDM_TEST_MENU));
    ASSERT_TRUE(menu);
    EXPECT_EQ(L"&Datei", MenuText(menu.Get(), 0, MF_BYPOSITION));
    HMENU file = GetSubMenu(menu.Get(), 0);
    ASSERT_NE(nullptr, file);
    EXPECT_EQ(L"\u00d6&ffnen", MenuText(file, IDM_TEST_OPEN, MF_BYCOMMAND));
    EXPECT_EQ(L"&Schlie\u00dfen", MenuText(file, IDM_TEST_CLOSE, MF_BYCOMMAND));
}

// Readers on several threads while the language switches: every answer is one language's text, never
// null and never torn, and a text handed out earlier stays valid.
TEST_F(LangModuleTest, ConcurrentReadersWhileTheLanguageSwitchesAndEarlierTextsStayValid) {
    const wchar_t* hello = module.GetLangString(IDS_TEST_GREETING);
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
    EXPECT_STREQ(L"Hello", hello);
}

}  // namespace
