// Window helpers on real windows: centring, the bold font and the static edge.
#include <gtest/gtest.h>

#include "center_math.h"
#include "test_windows.h"
#include "wren.h"

namespace {

// Over a shown window, on the work area without one, and near the work area's edge: where the centring
// arithmetic (tested on its own) puts the window, and at its own size.
TEST(CenterWindow, CentresOverTheShownWindowOrTheWorkAreaAndStaysOnIt) {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const int width = (area.right - area.left) / 3, height = (area.bottom - area.top) / 3;
    const RECT middle{area.left + width / 4, area.top + height / 4, area.left + width / 4 + 2 * width,
                      area.top + height / 4 + 2 * height};
    const RECT edge{area.right - width / 4, area.bottom - height / 4, area.right + width / 4, area.bottom + height / 4};
    for (const RECT* over : {&middle, static_cast<const RECT*>(nullptr), &edge}) {
        SCOPED_TRACE(over == &middle ? "over a window" : over ? "near the edge" : "on the work area");
        UniqueWindow shown = over ? CreateTopLevel(over->left, over->top, over->right - over->left,
                                                   over->bottom - over->top, Shown::Yes)
                                  : UniqueWindow();
        UniqueWindow window = CreateTopLevel(area.left, area.top, width, height);
        wren::CenterWindow(window.get(), shown.get());
        RECT placed{};
        GetWindowRect(window.get(), &placed);
        const RECT target = over ? *over : area;
        const wren::Position expected =
            wren::CenteredPosition({placed.left, placed.top, placed.right, placed.bottom},
                                   {target.left, target.top, target.right, target.bottom},
                                   {area.left, area.top, area.right, area.bottom});
        EXPECT_EQ(placed.left, expected.x);
        EXPECT_EQ(placed.top, expected.y);
        EXPECT_EQ(placed.right - placed.left, width) << "the size stays";
        EXPECT_LE(placed.right, area.right);
        EXPECT_LE(placed.bottom, area.bottom);
    }
}

LOGFONTW Describe(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof(description), &description);
    return description;
}

HFONT FontOf(HWND window) { return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)); }

// Embold gives a control a bold copy of its font, one shared by all; EmStaticEdge adds the static edge and
// keeps the other extended styles.
TEST(EmboldAndEmStaticEdge, BoldCopyOfTheFontAndTheStaticEdgeKeepingTheOtherStyles) {
    UniqueWindow parent = CreateTopLevel(0, 0, 300, 200);
    HWND first = CreateChild(parent.get(), L"STATIC", 1003, SS_LEFT, L"Lumivex has encountered a problem.");
    HWND second = CreateChild(parent.get(), L"STATIC", 1004, SS_LEFT, L"headline");
    HWND edged = CreateChild(parent.get(), L"STATIC", 1002, SS_LEFT, L"message");
    HFONT normal = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(first, WM_SETFONT, reinterpret_cast<WPARAM>(normal), FALSE);
    SendMessageW(second, WM_SETFONT, reinterpret_cast<WPARAM>(normal), FALSE);
    ASSERT_LT(Describe(normal).lfWeight, FW_BOLD);

    wren::Embold(parent.get(), 1003);
    wren::Embold(parent.get(), 1004);

    ASSERT_NE(FontOf(first), nullptr);
    EXPECT_EQ(Describe(FontOf(first)).lfWeight, FW_BOLD);
    EXPECT_STREQ(Describe(FontOf(first)).lfFaceName, Describe(normal).lfFaceName);
    EXPECT_EQ(FontOf(first), FontOf(second)) << "one bold font shared, not one per call";

    SetWindowLongPtrW(edged, GWL_EXSTYLE, GetWindowLongPtrW(edged, GWL_EXSTYLE) | WS_EX_TRANSPARENT);
    wren::EmStaticEdge(parent.get(), 1002);
    const LONG_PTR exStyle = GetWindowLongPtrW(edged, GWL_EXSTYLE);
    EXPECT_TRUE(exStyle & WS_EX_STATICEDGE);
    EXPECT_TRUE(exStyle & WS_EX_TRANSPARENT);
}

}  // namespace
