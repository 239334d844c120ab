// The kernel-object type table in both of its orders, and the list passes of the handle lists.
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "kobj/handle_type_table.h"
#include "kobj/list_passes.h"

namespace {

using namespace lmvx::kobj;

TEST(HandleTypeTable, ImagesAndIconsOfEveryType) {
    const struct { const wchar_t* type; int image; unsigned short icon; } cases[] = {
        {L"File", 1, 248},      {L"IoCompletion", 1, 248}, {L"Thread", 2, 233},  {L"Process", 3, 247},
        {L"Key", 4, 262},       {L"Mutant", 5, 193},       {L"Directory", 6, 253}, {L"Event", 7, 249},
        {L"Token", 8, 250},     {L"Section", 9, 251},      {L"Port", 10, 252},
        // Names the table does not know, also in another case, and the empty type.
        {L"Semaphore", 0, 193}, {L"file", 0, 193},         {L"ALPC Port", 0, 193}, {L"", 0, 193},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HandleTypeImageIndex(c.type), c.image) << c.type;
        EXPECT_EQ(HandleTypeIconId(c.type), c.icon) << c.type;
        // The image a type gets shows the same picture as its large icon.
        EXPECT_EQ(kHandleImageIcons[HandleTypeImageIndex(c.type)], c.icon) << c.type;
    }
}

// A list of handle values with the passes' access to it.
struct FakeRows {
    std::vector<unsigned> values;
    RowAccess Access() {
        return {[this] { return static_cast<int>(values.size()); }, [this](int row) { return values[row]; },
                [this](int row) { values.erase(values.begin() + row); }};
    }
};

// The dialog's pass skips the row that moves up into a removed row's place and takes it next time; the pages'
// pass removes adjacent vanished rows at once.
TEST(ListPasses, TheDialogsPassSkipsTheRowThatMovesUpThePagesPassDoesNot) {
    const std::set<unsigned> present = {1, 4};
    const auto vanished = [&](unsigned value) { return !present.contains(value); };
    FakeRows dialog{{1, 2, 3, 4, 5}}, page{{1, 2, 3, 4, 5}};
    EXPECT_EQ(RemoveVanishedRows(dialog.Access(), true, vanished), 2);
    EXPECT_EQ(dialog.values, (std::vector<unsigned>{1, 3, 4}));   // 2 and 5 went, 3 was skipped
    EXPECT_EQ(RemoveVanishedRows(dialog.Access(), true, vanished), 1);
    EXPECT_EQ(dialog.values, (std::vector<unsigned>{1, 4}));
    EXPECT_EQ(RemoveVanishedRows(page.Access(), false, vanished), 3);
    EXPECT_EQ(page.values, (std::vector<unsigned>{1, 4}));
}

// Two rows in the wrong order stay unsorted, and a pair out of order is not examined when it is the last.
TEST(ListPasses, SortCheckLeavesTheLastPairAndShortListsAlone) {
    const std::pair<std::vector<int>, int> cases[] = {
        {{}, -1}, {{2, 1}, -1}, {{1, 2, 4, 3}, -1}, {{2, 1, 3}, 0}, {{1, 3, 2, 4}, 1}, {{1, 1, 1}, -1}};
    for (const auto& [keys, misplaced] : cases) {
        const auto compare = [&](int a, int b) { return keys[a] < keys[b] ? -1 : keys[a] > keys[b] ? 1 : 0; };
        EXPECT_EQ(FindRowOutOfOrder(static_cast<int>(keys.size()), compare), misplaced) << keys.size();
    }
}

}  // namespace
