// Window helpers on real windows: centring, the bold font and the static edge.
#include <gtest/gtest.h>

#include "center_math.h"
#include "test_windows.h"
#include "wren.h"

namespace {

RECT WindowRectOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

RECT WorkArea() {
    RECT workArea{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea, 0);
    return workArea;
}

TEST(CenterWindow, CentresOverTheOtherWindow) {
    const RECT area = WorkArea();
    const int overWidth = (area.right - area.left) / 2;
    const int overHeight = (area.bottom - area.top) / 2;
    UniqueWindow over =
        CreateTopLevel(area.left + overWidth / 4, area.top + overHeight / 4, overWidth, overHeight, Shown::Yes);
    UniqueWindow window = CreateTopLevel(area.left, area.top, overWidth / 2, overHeight / 2);

    wren::CenterWindow(window.get(), over.get());

    const RECT placed = WindowRectOf(window.get());
    const RECT target = WindowRectOf(over.get());
    EXPECT_NEAR((placed.left + placed.right) / 2, (target.left + target.right) / 2, 1);
    EXPECT_NEAR((placed.top + placed.bottom) / 2, (target.top + target.bottom) / 2, 1);
    EXPECT_EQ(placed.right - placed.left, overWidth / 2) << "the size stays";
}

TEST(CenterWindow, WithoutAnOtherWindowCentresOnTheWorkArea) {
    const RECT area = WorkArea();
    UniqueWindow window =
        CreateTopLevel(area.left, area.top, (area.right - area.left) / 3, (area.bottom - area.top) / 3);

    wren::CenterWindow(window.get(), nullptr);

    const RECT placed = WindowRectOf(window.get());
    EXPECT_NEAR(placed.left - area.left, area.right - placed.right, 1);
    EXPECT_NEAR(placed.top - area.top, area.bottom - placed.bottom, 1);
}

TEST(CenterWindow, StaysOnTheWorkAreaNearItsEdge) {
    const RECT area = WorkArea();
    const int width = (area.right - area.left) / 3;
    const int height = (area.bottom - area.top) / 3;
    UniqueWindow over =
        CreateTopLevel(area.right - width / 4, area.bottom - height / 4, width / 2, height / 2, Shown::Yes);
    UniqueWindow window = CreateTopLevel(area.left, area.top, width, height);

    wren::CenterWindow(window.get(), over.get());

    const RECT placed = WindowRectOf(window.get());
    const wren::Position expected =
        wren::CenteredPosition({placed.left, placed.top, placed.right, placed.bottom},
                               {area.right - width / 4, area.bottom - height / 4, area.right - width / 4 + width / 2,
                                area.bottom - height / 4 + height / 2},
                               {area.left, area.top, area.right, area.bottom});
    EXPECT_EQ(placed.left, expected.x);
    EXPECT_EQ(placed.top, expected.y);
    EXPECT_LE(placed.right, area.right);
    EXPECT_LE(placed.bottom, area.bottom);
}

LONG WeightOf(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof(description), &description);
    return description.lfWeight;
}

std::wstring FaceOf(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof(description), &description);
    return description.lfFaceName;
}

HFONT FontOf(HWND window) { return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)); }

TEST(Embold, GivesTheControlABoldCopyOfItsFont) {
    UniqueWindow parent = CreateTopLevel(0, 0, 300, 200);
    HWND first = CreateChild(parent.get(), L"STATIC", 1003, SS_LEFT, L"Lumivex has encountered a problem.");
    HWND second = CreateChild(parent.get(), L"STATIC", 1004, SS_LEFT, L"headline");
    HFONT normal = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(first, WM_SETFONT, reinterpret_cast<WPARAM>(normal), FALSE);
    SendMessageW(second, WM_SETFONT, reinterpret_cast<WPARAM>(normal), FALSE);
    ASSERT_LT(WeightOf(normal), FW_BOLD);

    wren::Embold(parent.get(), 1003);
    wren::Embold(parent.get(), 1004);

    ASSERT_NE(FontOf(first), nullptr);
    EXPECT_EQ(WeightOf(FontOf(first)), FW_BOLD);
    EXPECT_EQ(FaceOf(FontOf(first)), FaceOf(normal));
    EXPECT_EQ(FontOf(first), FontOf(second)) << "one bold font shared, not one per call";
}

TEST(EmStaticEdge, AddsTheStaticEdgeAndKeepsTheOtherStyles) {
    UniqueWindow parent = CreateTopLevel(0, 0, 300, 200);
    HWND control = CreateChild(parent.get(), L"STATIC", 1002, SS_LEFT, L"message");
    SetWindowLongPtrW(control, GWL_EXSTYLE, GetWindowLongPtrW(control, GWL_EXSTYLE) | WS_EX_TRANSPARENT);

    wren::EmStaticEdge(parent.get(), 1002);

    const LONG_PTR exStyle = GetWindowLongPtrW(control, GWL_EXSTYLE);
    EXPECT_TRUE(exStyle & WS_EX_STATICEDGE);
    EXPECT_TRUE(exStyle & WS_EX_TRANSPARENT);
}

}  // namespace
