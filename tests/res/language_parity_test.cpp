// Strings and menus in both languages: English and German offer the same strings, resources and menu
// commands, so that switching the language never loses a text or a command; the main menu carries what the
// program relies on, with an access key on every item.
#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <map>

#include "dialog_window.h"
#include "module_resources.h"
#include "resource.h"
#include "string_id_names.h"
#include "test_host.h"

namespace lmvx::restest {
namespace {

using lmvx_test::SeenItem;

std::vector<SeenItem> ReadMenuOf(unsigned id, LANGID language) {
    UniqueMenu menu = LoadMenuInLanguage(id, language);
    EXPECT_TRUE(menu) << "menu " << id << " language " << language;
    return menu ? lmvx_test::ReadMenu(menu.get()) : std::vector<SeenItem>{};
}

// Every command id of a menu tree, depth first.
std::vector<unsigned> CommandIds(const std::vector<SeenItem>& items) {
    std::vector<unsigned> ids;
    for (const SeenItem& item : items) {
        if (!item.submenu.empty()) {
            const auto inner = CommandIds(item.submenu);
            ids.insert(ids.end(), inner.begin(), inner.end());
        } else if (!item.separator) {
            ids.push_back(item.id);
        }
    }
    return ids;
}

// The access key of a menu text, lower-cased; 0 when it has none ("&&" is a literal ampersand, text after a
// tab is the accelerator and is ignored).
wchar_t MnemonicOf(const std::wstring& text) {
    for (std::size_t i = 0; i + 1 < text.size() && text[i] != L'\t'; ++i) {
        if (text[i] != L'&') continue;
        if (text[i + 1] != L'&') return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(text[i + 1])));
        ++i;
    }
    return 0;
}

std::string Narrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

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

TEST(StringTable, BothLanguagesHoldTheSameStringsEveryNamedOneWithTheSameArguments) {
    auto english = StringsOfLanguage(kEnglish);
    auto german = StringsOfLanguage(kGerman);
    ASSERT_FALSE(english.empty());
    for (const auto& [id, text] : english) {
        EXPECT_TRUE(german.count(id)) << "only English has string " << id;
        EXPECT_EQ(ConversionsOf(german[id]), ConversionsOf(text)) << "string " << id;
    }
    for (const auto& [id, text] : german) EXPECT_TRUE(english.count(id)) << "only German has string " << id;
    for (const StringIdName& named : kStringIdNames) {
        EXPECT_FALSE(english[named.id].empty()) << named.name << " has no English text";
        EXPECT_FALSE(german[named.id].empty()) << named.name << " has no German text";
    }
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

TEST(Resources, StringsDialogsAndMenusComeInEnglishAndGermanAlikeAndNoOtherLanguage) {
    for (const wchar_t* type : {RT_STRING, RT_DIALOG, RT_MENU}) {
        auto ids = ResourceIdsByLanguage(type);
        ASSERT_FALSE(ids[kEnglish].empty());
        EXPECT_EQ(ids[kEnglish], ids[kGerman]);
        EXPECT_EQ(ids.size(), 2u);
    }
}

// The program rebuilds popups by position, so position and command must match.
TEST(Menus, EachMenuPairHasTheSameCommandsInTheSameOrder) {
    for (unsigned id : ResourceIds(RT_MENU, kEnglish)) {
        auto english = CommandIds(ReadMenuOf(id, kEnglish));
        EXPECT_FALSE(english.empty()) << "menu " << id;
        EXPECT_EQ(english, CommandIds(ReadMenuOf(id, kGerman))) << "menu " << id;
    }
}

void ExpectUniqueMnemonics(const std::vector<SeenItem>& items, const std::wstring& where) {
    std::map<wchar_t, std::wstring> used;
    for (const SeenItem& item : items) {
        if (item.separator) continue;
        const wchar_t key = MnemonicOf(item.text);
        EXPECT_NE(key, 0) << "no access key: " << Narrow(item.text);
        if (key != 0) { EXPECT_TRUE(used.emplace(key, item.text).second) << "access key shared in " << Narrow(where) << ": " << Narrow(item.text); }
        if (!item.submenu.empty()) ExpectUniqueMnemonics(item.submenu, item.text);
    }
}

class MenuInLanguage : public ::testing::TestWithParam<LANGID> {};

TEST_P(MenuInLanguage, EveryItemHasAnAccessKeyUniqueInItsMenu) {
    for (unsigned id : {IDR_MAIN_MENU, IDR_PRIORITY_MENU}) {
        auto menu = ReadMenuOf(id, GetParam());
        ASSERT_FALSE(menu.empty()) << "menu " << id;
        for (const SeenItem& top : menu) ExpectUniqueMnemonics(top.submenu, top.text);
        if (id == IDR_MAIN_MENU) ExpectUniqueMnemonics(menu, L"menu bar");
    }
}

TEST_P(MenuInLanguage, MainMenuCarriesEveryMainWindowCommand) {
    auto ids = CommandIds(ReadMenuOf(IDR_MAIN_MENU, GetParam()));
    const unsigned commands[] = {
        IDM_EXIT, IDM_TERMINATE_PROCESS, IDM_RESUME_PROCESS, IDM_OPEN_CONTAINING_FOLDER,
        IDM_PAGE_OUT_PROCESS, IDM_MEMORY_VIEWER, IDM_NETWORK_CONNECTIONS, IDM_RESTART_PROCESS,
        IDM_PROPERTIES, IDM_KERNEL_OBJECTS, IDM_PAUSE_PROCESS, IDM_PRIORITY_REALTIME, IDM_PRIORITY_HIGH,
        IDM_PRIORITY_ABOVE_NORMAL, IDM_PRIORITY_NORMAL, IDM_PRIORITY_BELOW_NORMAL, IDM_PRIORITY_IDLE,
        IDM_HELP, IDM_RUN, IDM_ABOUT, IDM_WEBSITE, IDM_CHECK_UPDATES, IDM_KEEP_IN_FOREGROUND, IDM_REBOOT,
        IDM_LOGOFF, IDM_POWER_OFF, IDM_RESUME_ALL, IDM_TOOL_PULSEWRIGHT, IDM_TOOL_HEAPWRIGHT,
        IDM_LANGUAGE_SETTINGS, IDM_OPTIONS, IDM_TOGGLE_REQUEST_ELEVATION, IDM_CLOSE_WINDOW,
        IDM_BRING_TO_FRONT};
    for (unsigned command : commands)
        EXPECT_EQ(std::count(ids.begin(), ids.end(), command), 1) << "command " << command;
}

// View > position 0 sorts, position 1 sets the rate; Process is the third popup.
TEST_P(MenuInLanguage, RebuiltPopupsSitWhereTheProgramLooksForThem) {
    auto menu = ReadMenuOf(IDR_MAIN_MENU, GetParam());
    ASSERT_GE(menu.size(), 3u);
    const std::vector<SeenItem>& view = menu[1].submenu;
    ASSERT_GE(view.size(), 2u);
    EXPECT_EQ(CommandIds(view[0].submenu),
              (std::vector<unsigned>{IDM_SORT_PROCESS_TREE, IDM_SORT_START_ORDER, IDM_SORT_PROCESS_NAME,
                                     IDM_SORT_PROCESS_ID, IDM_SORT_CPU_USAGE, IDM_SORT_MEMORY_USAGE,
                                     IDM_SORT_DESCRIPTION, IDM_SORT_COMPANY_NAME, IDM_SORT_PATH_NAME,
                                     IDM_SORT_USERNAME, IDM_SORT_HANDLE_COUNT, IDM_SORT_USER_OBJECTS,
                                     IDM_SORT_GDI_OBJECTS, IDM_SORT_REVERSE}));
    EXPECT_EQ(CommandIds(view[1].submenu),
              (std::vector<unsigned>{IDM_RATE_VERY_LOW, IDM_RATE_LOW, IDM_RATE_MEDIUM, IDM_RATE_HIGH,
                                     IDM_RATE_VERY_HIGH}));
    auto process = CommandIds(menu[2].submenu);
    EXPECT_NE(std::find(process.begin(), process.end(), IDM_PROPERTIES), process.end());
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, MenuInLanguage, ::testing::Values(kEnglish, kGerman));

}  // namespace
}  // namespace lmvx::restest
