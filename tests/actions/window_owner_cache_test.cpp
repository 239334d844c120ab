// Owners of windows remembered between listings: asked once per window, forgotten when it is gone.
#include <gtest/gtest.h>

#include <vector>

#include "mainwnd/window_owner_cache.h"

namespace {

HWND Handle(unsigned value) { return reinterpret_cast<HWND>(static_cast<UINT_PTR>(value)); }

// Answers with the handle's value as process and thread, 0 (gone) for handles listed in gone; logs asks.
struct Lookup {
    std::vector<HWND> asked;
    std::vector<HWND> gone;
    lmvx::WindowOwner operator()(HWND window) {
        asked.push_back(window);
        for (HWND missing : gone) {
            if (missing == window) return {};
        }
        const auto value = static_cast<DWORD>(reinterpret_cast<UINT_PTR>(window));
        return {value + 1000, value};
    }
};

TEST(WindowOwnerCache, AsksOncePerWindowWhileItStaysListed) {
    lmvx::WindowOwnerCache cache;
    Lookup lookup;
    auto ask = [&](HWND window) { return lookup(window); };
    const std::vector<HWND> windows{Handle(0x10020), Handle(0x10024), Handle(0x2002c)};
    const auto first = cache.OwnersOf(windows, ask);
    ASSERT_EQ(first.size(), 3u);
    EXPECT_EQ(first[1].processId, 0x10024u + 1000);
    EXPECT_EQ(first[1].threadId, 0x10024u);
    EXPECT_EQ(lookup.asked, windows);

    lookup.asked.clear();
    const std::vector<HWND> reordered{Handle(0x2002c), Handle(0x10020), Handle(0x10024), Handle(0x30030)};
    const auto second = cache.OwnersOf(reordered, ask);
    EXPECT_EQ(lookup.asked, std::vector<HWND>{Handle(0x30030)}) << "only the new window is asked about";
    ASSERT_EQ(second.size(), 4u);
    EXPECT_EQ(second[0].threadId, 0x2002cu) << "owners follow the order of this listing";
    EXPECT_EQ(second[3].threadId, 0x30030u);
}

TEST(WindowOwnerCache, ForgetsWindowsThatLeftTheListAndUnansweredOnes) {
    lmvx::WindowOwnerCache cache;
    Lookup lookup;
    lookup.gone = {Handle(0x50050)};
    auto ask = [&](HWND window) { return lookup(window); };
    cache.OwnersOf({Handle(0x40040), Handle(0x50050)}, ask);
    cache.OwnersOf({Handle(0x50050)}, ask);   // 0x40040 has gone from the listing
    lookup.asked.clear();
    lookup.gone.clear();
    const auto owners = cache.OwnersOf({Handle(0x40040), Handle(0x50050)}, ask);
    EXPECT_EQ(lookup.asked, (std::vector<HWND>{Handle(0x40040), Handle(0x50050)}));
    EXPECT_EQ(owners[1].threadId, 0x50050u) << "a window that could not be answered is asked again";
}

}  // namespace
