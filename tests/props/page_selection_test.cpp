// Which pages a properties window lists, in which order, and the text of its exit notice.
#include <gtest/gtest.h>

#include "props/page_selection.h"

namespace lmvx {
namespace {

INT_PTR CALLBACK AnyPage(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

using Ctx = ProcessPropertiesContext;
using enum PageCondition;

// Creation order as the program has it: Modules is created fifth but listed after Network.
const PropertyPage kPages[] = {
    {195, {}, 1, Always, AnyPage, &Ctx::generalPage},
    {199, {}, 9, ModuleSnapshot, AnyPage, &Ctx::modulesPage},
    {7659, {}, 6, QueryAccess, AnyPage, &Ctx::handlesPage},
    {7657, {}, 8, Always, AnyPage, &Ctx::networkPage},
    {232, {}, 11, Always, nullptr, &Ctx::threadsPage},
    {255, {}, 12, TokenQuery, AnyPage, &Ctx::tokenPage},
    {7661, {}, 5, QueryAccess, AnyPage, &Ctx::virtualMemoryPage},
};

std::vector<unsigned> ListedDialogs(const ProcessAccess& access) {
    std::vector<unsigned> ids;
    for (size_t index : TreeOrder(kPages, access)) ids.push_back(kPages[index].dialogId);
    return ids;
}

TEST(PropertiesPageTree, ListsPagesByTreePositionAndLeavesOutWhatCannotBeOpened) {
    struct Case {
        ProcessAccess access;
        std::vector<unsigned> listed;
    };
    const Case cases[] = {
        {{true, true, true}, {195, 7661, 7659, 7657, 199, 255}},
        {{true, false, true}, {195, 7661, 7659, 7657, 199}},   // no token
        {{false, false, true}, {195, 7657, 199}},              // a process we may not query
        {{true, true, false}, {195, 7661, 7659, 7657, 255}},   // no module snapshot
    };
    for (const Case& c : cases) EXPECT_EQ(ListedDialogs(c.access), c.listed);
}

TEST(PropertiesExitNotice, ShowsTheCodeSignedAndInHexadecimal) {
    const wchar_t* format = L"The process has exited with code %d (0x%X).";
    EXPECT_EQ(FormatExitNotice(format, 0), L"The process has exited with code 0 (0x0).");
    EXPECT_EQ(FormatExitNotice(format, 0xC0000005), L"The process has exited with code -1073741819 (0xC0000005).");
    EXPECT_EQ(FormatExitNotice(L"Der Prozess wurde mit Code %d (0x%X) beendet.", 259),
              L"Der Prozess wurde mit Code 259 (0x103) beendet.");
}

}  // namespace
}  // namespace lmvx
