// wren64.dll's own dialogs: every localised dialog exists in English and German with the same controls,
// and the German one really is German.
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "language_choice.h"
#include "wren.h"
#include "wren_resource.h"

namespace {

using DialogLanguages = std::set<WORD>;

HMODULE Library() { return GetModuleHandleW(L"wren64.dll"); }

BOOL CALLBACK CollectLanguage(HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR languages) {
    reinterpret_cast<DialogLanguages*>(languages)->insert(language);
    return TRUE;
}

BOOL CALLBACK CollectDialogId(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR ids) {
    if (IS_INTRESOURCE(name)) reinterpret_cast<std::vector<WORD>*>(ids)->push_back(LOWORD(name));
    return TRUE;
}

std::vector<WORD> DialogIds() {
    std::vector<WORD> ids;
    EnumResourceNamesW(Library(), RT_DIALOG, CollectDialogId, reinterpret_cast<LONG_PTR>(&ids));
    return ids;
}

DialogLanguages LanguagesOf(WORD dialogId) {
    DialogLanguages languages;
    EnumResourceLanguagesW(Library(), RT_DIALOG, MAKEINTRESOURCEW(dialogId), CollectLanguage,
                           reinterpret_cast<LONG_PTR>(&languages));
    return languages;
}

INT_PTR CALLBACK Inert(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

BOOL CALLBACK CollectControlId(HWND control, LPARAM ids) {
    reinterpret_cast<std::multiset<int>*>(ids)->insert(GetDlgCtrlID(control));
    return TRUE;
}

struct CreatedDialog {
    std::multiset<int> controlIds;
    std::wstring caption;
};

// Builds the dialog of one exact language, hidden, and notes what it holds.
CreatedDialog Create(WORD dialogId, WORD language) {
    CreatedDialog result;
    HRSRC resource = FindResourceExW(Library(), RT_DIALOG, MAKEINTRESOURCEW(dialogId), language);
    if (!resource) return result;
    const auto* dialogTemplate = static_cast<const DLGTEMPLATE*>(LockResource(LoadResource(Library(), resource)));
    HWND dialog = CreateDialogIndirectParamW(Library(), dialogTemplate, nullptr, Inert, 0);
    if (!dialog) return result;
    EnumChildWindows(dialog, CollectControlId, reinterpret_cast<LPARAM>(&result.controlIds));
    wchar_t caption[256] = {};
    GetWindowTextW(dialog, caption, 256);
    result.caption = caption;
    DestroyWindow(dialog);
    return result;
}

// Every localised dialog exists in English and German, with the same controls and a translated caption.
TEST(LanguageResources, LocalisedDialogsExistInEnglishAndGermanWithTheSameControlsAndDifferentTexts) {
    const std::vector<WORD> ids = DialogIds();
    ASSERT_FALSE(ids.empty());
    for (WORD id : ids) {
        const DialogLanguages languages = LanguagesOf(id);
        if (!languages.count(wren::kLanguageEnglish) && !languages.count(wren::kLanguageGerman)) continue;
        ASSERT_TRUE(languages.count(wren::kLanguageEnglish) && languages.count(wren::kLanguageGerman))
            << "dialog " << id << " lacks a language";
        const CreatedDialog english = Create(id, wren::kLanguageEnglish);
        const CreatedDialog german = Create(id, wren::kLanguageGerman);
        ASSERT_FALSE(english.controlIds.empty()) << "dialog " << id;
        EXPECT_EQ(english.controlIds, german.controlIds) << "dialog " << id;
        EXPECT_NE(english.caption, german.caption) << "dialog " << id << " is not translated";
    }
}

TEST(LanguageResources, FirstStartDialogNeedsNoLanguageAndOffersBoth) {
    EXPECT_TRUE(LanguagesOf(IDD_WREN_SELECT_LANGUAGE).count(MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL)));
    const CreatedDialog dialog =
        Create(IDD_WREN_SELECT_LANGUAGE, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL));
    EXPECT_TRUE(dialog.controlIds.count(IDC_WREN_LANGUAGE_ENGLISH));
    EXPECT_TRUE(dialog.controlIds.count(IDC_WREN_LANGUAGE_GERMAN));
    EXPECT_TRUE(dialog.controlIds.count(IDOK));
}

TEST(DialogLoader, AMissingTemplateIsAnErrorNotADialog) {
    EXPECT_EQ(wren::DialogBoxParamW(Library(), MAKEINTRESOURCEW(999), nullptr, Inert, 0), -1);
}

}  // namespace
