// English and German must offer the same strings, dialogs and menus, control for control
// and command for command, so that switching the language never loses a text or a command.
#include <gtest/gtest.h>

#include <algorithm>

#include "module_resources.h"
#include "resource.h"
#include "resource_templates.h"
#include "string_id_names.h"

namespace lmvx::restest {
namespace {

std::vector<std::int32_t> SortedControlIds(const DialogTemplate& dialog) {
    std::vector<std::int32_t> ids;
    for (const DialogControl& control : dialog.controls) ids.push_back(control.id);
    std::sort(ids.begin(), ids.end());
    return ids;
}

DialogTemplate LoadDialog(unsigned id, LANGID language) {
    ResourceBytes bytes = FindResourceBytes(RT_DIALOG, id, language);
    auto dialog = ParseDialogTemplateEx(bytes.data, bytes.size);
    EXPECT_TRUE(dialog.has_value()) << "dialog " << id << " language " << language;
    return dialog.value_or(DialogTemplate{});
}

std::vector<MenuItem> LoadMenu(unsigned id, LANGID language) {
    ResourceBytes bytes = FindResourceBytes(RT_MENU, id, language);
    auto menu = ParseMenuTemplate(bytes.data, bytes.size);
    EXPECT_TRUE(menu.has_value()) << "menu " << id << " language " << language;
    return menu.value_or(std::vector<MenuItem>{});
}

TEST(StringTable, BothLanguagesDefineTheSameStringIds) {
    auto english = StringsOfLanguage(kEnglish);
    auto german = StringsOfLanguage(kGerman);
    ASSERT_FALSE(english.empty());
    for (const auto& [id, text] : english) EXPECT_TRUE(german.count(id)) << "only English has string " << id;
    for (const auto& [id, text] : german) EXPECT_TRUE(english.count(id)) << "only German has string " << id;
}

TEST(StringTable, EveryNamedStringIdHasTextInBothLanguages) {
    auto english = StringsOfLanguage(kEnglish);
    auto german = StringsOfLanguage(kGerman);
    for (const StringIdName& named : kStringIdNames) {
        EXPECT_FALSE(english[named.id].empty()) << named.name << " has no English text";
        EXPECT_FALSE(german[named.id].empty()) << named.name << " has no German text";
    }
}

TEST(StringTable, StringsHaveNoOtherLanguages) {
    for (const auto& [language, blocks] : ResourceIdsByLanguage(RT_STRING))
        EXPECT_TRUE(language == kEnglish || language == kGerman) << "unexpected language " << language;
}

TEST(StringTable, UmlautsAndEscapesSurviveTheResourceCompiler) {
    auto english = StringsOfLanguage(kEnglish);
    auto german = StringsOfLanguage(kGerman);
    EXPECT_EQ(german[IDS_PRIORITY_ABOVE_NORMAL], L"H\u00f6her als normal");
    EXPECT_EQ(german[IDS_MENU_CLOSE_WINDOW], L"Fenster schlie\u00dfen");
    EXPECT_EQ(english[IDS_RATE_LOW], L"Low \t1 Second");
    EXPECT_EQ(english[IDS_DATE_FORMAT], L"%d/%d%/%d");
    EXPECT_EQ(english[IDS_ERR_CHANGE_PRIORITY], L"Lumivex could not change the process's priority.");
    EXPECT_NE(english[IDS_CLOSE_HANDLE_WARNING].find(L"impair\nthe"), std::wstring::npos);
}

// A German format must consume the same arguments in the same order as the English one.
std::wstring ConversionsOf(const std::wstring& format) {
    std::wstring conversions;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != L'%') continue;
        std::size_t j = i + 1;
        while (j < format.size() && std::wstring(L"0123456789.-+# lh").find(format[j]) != std::wstring::npos) ++j;
        if (j < format.size()) conversions += format.substr(i, j - i + 1);
        i = j;
    }
    return conversions;
}

TEST(StringTable, GermanFormatsTakeTheSameArgumentsAsEnglish) {
    auto english = StringsOfLanguage(kEnglish);
    auto german = StringsOfLanguage(kGerman);
    for (const auto& [id, text] : english)
        EXPECT_EQ(ConversionsOf(german[id]), ConversionsOf(text)) << "string " << id;
}

TEST(DialogsAndMenus, BothLanguagesDefineTheSameAndNoOthers) {
    for (const wchar_t* type : {RT_DIALOG, RT_MENU}) {
        auto ids = ResourceIdsByLanguage(type);
        ASSERT_FALSE(ids[kEnglish].empty());
        EXPECT_EQ(ids[kEnglish], ids[kGerman]);
        EXPECT_EQ(ids.size(), 2u);
    }
}

TEST(Dialogs, EachDialogPairHasTheSameControls) {
    for (unsigned id : ResourceIds(RT_DIALOG, kEnglish)) {
        DialogTemplate english = LoadDialog(id, kEnglish);
        DialogTemplate german = LoadDialog(id, kGerman);
        EXPECT_EQ(SortedControlIds(english), SortedControlIds(german)) << "dialog " << id;
        EXPECT_EQ(english.style, german.style) << "dialog " << id;
        EXPECT_EQ(english.cx, german.cx) << "dialog " << id;
        EXPECT_EQ(english.cy, german.cy) << "dialog " << id;
    }
}

// The program rebuilds popups by position, so position and command must match.
TEST(Menus, EachMenuPairHasTheSameCommandsInTheSameOrder) {
    for (unsigned id : ResourceIds(RT_MENU, kEnglish)) {
        auto english = CollectCommandIds(LoadMenu(id, kEnglish));
        auto german = CollectCommandIds(LoadMenu(id, kGerman));
        EXPECT_FALSE(english.empty()) << "menu " << id;
        EXPECT_EQ(english, german) << "menu " << id;
    }
}

}  // namespace
}  // namespace lmvx::restest
