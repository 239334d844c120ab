// Where the main window's children go for a client size: bars, details pane and the list.
#include <gtest/gtest.h>

#include "mainwnd/main_window_layout.h"

namespace lmvx {
namespace {

int Width(const RECT& r) { return r.right - r.left; }
int Height(const RECT& r) { return r.bottom - r.top; }

bool Overlap(const RECT& a, const RECT& b) {
    return Width(a) > 0 && Height(a) > 0 && Width(b) > 0 && Height(b) > 0 && a.left < b.right && b.left < a.right &&
           a.top < b.bottom && b.top < a.bottom;
}

bool Inside(const RECT& r, int width, int height) {
    return r.left >= 0 && r.top >= 0 && r.right <= width && r.bottom <= height && Width(r) >= 0 && Height(r) >= 0;
}

void ExpectTiled(const MainWindowLayout& layout, int width, int height) {
    const RECT all[] = {layout.toolbar, layout.detailsPane, layout.list, layout.statusBar};
    for (const RECT& r : all) EXPECT_TRUE(Inside(r, width, height));
    for (size_t i = 0; i < 4; ++i) {
        for (size_t j = i + 1; j < 4; ++j) EXPECT_FALSE(Overlap(all[i], all[j])) << i << " overlaps " << j;
    }
}

struct SizeCase {
    int width;
    int height;
};

class LayoutAtSize : public ::testing::TestWithParam<SizeCase> {};

TEST_P(LayoutAtSize, BarsKeepTheirHeightAndTheListTakesTheRest) {
    const auto [width, height] = GetParam();
    const MainWindowLayoutInput input{width, height, 26, 22, 180};
    const MainWindowLayout layout = ComputeMainWindowLayout(input);
    ExpectTiled(layout, width, height);
    EXPECT_EQ(Height(layout.toolbar), input.toolbarHeight);
    EXPECT_EQ(Height(layout.statusBar), input.statusBarHeight);
    EXPECT_EQ(layout.statusBar.bottom, height);
    EXPECT_EQ(Width(layout.detailsPane), input.detailsPaneWidth);
    // Nothing is left over: pane and list fill the band between the bars.
    EXPECT_EQ(Width(layout.detailsPane) + Width(layout.list), width);
    EXPECT_EQ(Height(layout.list), height - input.toolbarHeight - input.statusBarHeight);
    EXPECT_EQ(layout.list.top, layout.toolbar.bottom);
    EXPECT_EQ(layout.list.left, layout.detailsPane.right);
}

// The default window's client area, a maximised window on common screens.
INSTANTIATE_TEST_SUITE_P(Sizes, LayoutAtSize,
                         ::testing::Values(SizeCase{640, 514}, SizeCase{1280, 740}, SizeCase{1920, 1017}));

TEST(MainWindowLayout, ThePaneGivesWayBeforeTheListGetsNarrowerThanItsMinimum) {
    const MainWindowLayout layout = ComputeMainWindowLayout(MainWindowLayoutInput{300, 400, 0, 0, 250});
    EXPECT_EQ(Width(layout.list), kMinimumListWidth);
    EXPECT_EQ(Width(layout.detailsPane), 300 - kMinimumListWidth);
    ExpectTiled(layout, 300, 400);
}

TEST(MainWindowLayout, AWindowNarrowerThanTheListMinimumHasNoPane) {
    const MainWindowLayout layout = ComputeMainWindowLayout(MainWindowLayoutInput{120, 400, 0, 0, 250});
    EXPECT_EQ(Width(layout.detailsPane), 0);
    EXPECT_EQ(Width(layout.list), 120);
}

TEST(MainWindowLayout, BarsTallerThanTheWindowLeaveNoNegativeRectangle) {
    const MainWindowLayout layout = ComputeMainWindowLayout(MainWindowLayoutInput{400, 30, 26, 22, 100});
    ExpectTiled(layout, 400, 30);
    const MainWindowLayout negative = ComputeMainWindowLayout(MainWindowLayoutInput{-4, -4, -1, -1, -1});
    ExpectTiled(negative, 0, 0);
}

TEST(MainWindowLayout, WithoutAPaneTheListSpansTheWidth) {
    const MainWindowLayout layout = ComputeMainWindowLayout(640, 480, 30, 22);
    EXPECT_EQ(layout.list.left, 0);
    EXPECT_EQ(layout.list.right, 640);
    EXPECT_EQ(Width(layout.detailsPane), 0);
}

}  // namespace
}  // namespace lmvx
