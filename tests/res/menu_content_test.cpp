// What the program relies on in its menus: the commands of the main window, the popups it
// rebuilds by position, and an access key on every item.
#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <map>

#include "module_resources.h"
#include "resource.h"
#include "resource_templates.h"

namespace lmvx::restest {
namespace {

std::vector<MenuItem> LoadMenu(unsigned id, LANGID language) {
    ResourceBytes bytes = FindResourceBytes(RT_MENU, id, language);
    return ParseMenuTemplate(bytes.data, bytes.size).value_or(std::vector<MenuItem>{});
}

void ExpectUniqueMnemonics(const std::vector<MenuItem>& items, const std::wstring& where) {
    std::map<wchar_t, std::wstring> used;
    for (const MenuItem& item : items) {
        if (item.IsSeparator()) continue;
        wchar_t key = MnemonicOf(item.text);
        EXPECT_NE(key, 0) << "no access key: " << std::string(item.text.begin(), item.text.end());
        if (key != 0) {
            auto [it, inserted] = used.emplace(key, item.text);
            EXPECT_TRUE(inserted) << "access key shared in " << std::string(where.begin(), where.end()) << ": "
                                  << std::string(item.text.begin(), item.text.end());
        }
        if (item.popup) ExpectUniqueMnemonics(item.children, item.text);
    }
}

class MenuInLanguage : public ::testing::TestWithParam<LANGID> {};

TEST_P(MenuInLanguage, EveryItemHasAnAccessKeyUniqueInItsMenu) {
    for (unsigned id : {IDR_MAIN_MENU, IDR_PRIORITY_MENU}) {
        auto menu = LoadMenu(id, GetParam());
        ASSERT_FALSE(menu.empty()) << "menu " << id;
        for (const MenuItem& top : menu) ExpectUniqueMnemonics(top.children, top.text);
        if (id == IDR_MAIN_MENU) ExpectUniqueMnemonics(menu, L"menu bar");
    }
}

TEST_P(MenuInLanguage, MainMenuCarriesEveryMainWindowCommand) {
    auto ids = CollectCommandIds(LoadMenu(IDR_MAIN_MENU, GetParam()));
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
    auto menu = LoadMenu(IDR_MAIN_MENU, GetParam());
    ASSERT_GE(menu.size(), 3u);
    const MenuItem& view = menu[1];
    ASSERT_GE(view.children.size(), 2u);
    EXPECT_EQ(CollectCommandIds(view.children[0].children),
              (std::vector<unsigned>{IDM_SORT_PROCESS_TREE, IDM_SORT_START_ORDER, IDM_SORT_PROCESS_NAME,
                                     IDM_SORT_PROCESS_ID, IDM_SORT_CPU_USAGE, IDM_SORT_MEMORY_USAGE,
                                     IDM_SORT_DESCRIPTION, IDM_SORT_COMPANY_NAME, IDM_SORT_PATH_NAME,
                                     IDM_SORT_USERNAME, IDM_SORT_HANDLE_COUNT, IDM_SORT_USER_OBJECTS,
                                     IDM_SORT_GDI_OBJECTS, IDM_SORT_REVERSE}));
    EXPECT_EQ(CollectCommandIds(view.children[1].children),
              (std::vector<unsigned>{IDM_RATE_VERY_LOW, IDM_RATE_LOW, IDM_RATE_MEDIUM, IDM_RATE_HIGH,
                                     IDM_RATE_VERY_HIGH}));
    auto process = CollectCommandIds(menu[2].children);
    EXPECT_NE(std::find(process.begin(), process.end(), IDM_PROPERTIES), process.end());
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, MenuInLanguage, ::testing::Values(kEnglish, kGerman));

TEST(MnemonicOf, TheKeyAfterTheAmpersandNotLiteralAmpersandsOrAccelerators) {
    const std::pair<const wchar_t*, wchar_t> cases[] = {
        {L"&File", L'f'},       {L"Sort by C&ompany Name", L'o'}, {L"Fenster &schlie\u00dfen", L's'},
        {L"Save && Quit", 0},   {L"A && &B", L'b'},               {L"Low\t&1 Second", 0},
        {L"trailing&", 0},
    };
    for (const auto& [text, key] : cases) EXPECT_EQ(MnemonicOf(text), key) << std::string(text, text + std::wcslen(text));
}

}  // namespace
}  // namespace lmvx::restest
