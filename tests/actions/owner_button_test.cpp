// The owner-drawn button painted into a bitmap: frame, face by state, and nothing for other item types.
#include "common/owner_button.h"
#include "common/owner_button_layout.h"

#include <gtest/gtest.h>

#include "common/unique_resource.h"

namespace {

// A one-pixel shadow frame around a face that focus lightens and pushing highlights; other item types
// are left alone. Painted into a 120 x 40 bitmap first filled with a marker colour.
TEST(OwnerButtonPainting, FrameAndFaceByStateAndNothingForOtherItemTypes) {
    const lmvx::UniqueWindow button(CreateWindowExW(0, L"BUTTON", L"Pause", WS_POPUP | BS_OWNERDRAW, 0, 0, 120, 40,
                                                    nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
    ASSERT_TRUE(button);
    const HDC screen = GetDC(nullptr);
    const lmvx::UniqueMemoryDc dc(CreateCompatibleDC(screen));
    const lmvx::UniqueBitmap bitmap(CreateCompatibleBitmap(screen, 120, 40));
    ReleaseDC(nullptr, screen);
    const HGDIOBJ previous = SelectObject(dc.Get(), bitmap.Get());
    const COLORREF marker = RGB(1, 200, 3);
    const lmvx::UniqueGdiObject brush(CreateSolidBrush(marker));
    const RECT all = {0, 0, 120, 40};
    FillRect(dc.Get(), &all, static_cast<HBRUSH>(brush.Get()));
    const auto draw = [&](UINT type, UINT state) {
        DRAWITEMSTRUCT item = {};
        item.CtlType = type;
        item.itemState = state;
        item.hwndItem = button.Get();
        item.hDC = dc.Get();
        item.rcItem = all;
        return lmvx::DrawOwnerButton(nullptr, &item);
    };
    const auto pixel = [&](int x, int y) { return GetPixel(dc.Get(), x, y); };
    const auto shown = [&](COLORREF c) { return GetNearestColor(dc.Get(), c); };   // as a device of this depth shows it

    EXPECT_EQ(1, draw(ODT_STATIC, 0));
    EXPECT_EQ(shown(marker), pixel(0, 0));
    EXPECT_EQ(shown(marker), pixel(60, 20));
    EXPECT_EQ(1, draw(ODT_BUTTON, 0));
    EXPECT_EQ(shown(GetSysColor(COLOR_BTNSHADOW)), pixel(0, 0));
    EXPECT_EQ(shown(GetSysColor(COLOR_BTNSHADOW)), pixel(119, 39));
    EXPECT_EQ(shown(GetSysColor(COLOR_BTNFACE)), pixel(2, 2));
    draw(ODT_BUTTON, ODS_FOCUS);
    EXPECT_EQ(shown(lmvx::LightFaceColor(GetSysColor(COLOR_BTNFACE))), pixel(2, 2));
    SendMessageW(button.Get(), BM_SETSTATE, TRUE, 0);
    draw(ODT_BUTTON, ODS_FOCUS);
    EXPECT_EQ(shown(GetSysColor(COLOR_BTNHIGHLIGHT)), pixel(2, 2)) << "a focused pushed button is painted pressed";
    SelectObject(dc.Get(), previous);
}

}  // namespace
