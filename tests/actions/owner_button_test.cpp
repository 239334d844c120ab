// The owner-drawn button painted into a bitmap: frame, face by state, and nothing for other item types.
#include "common/owner_button.h"
#include "common/owner_button_layout.h"

#include <gtest/gtest.h>

#include "common/unique_resource.h"

namespace {

// A hidden owner-drawn button and a 120 x 40 bitmap to paint it into.
class ButtonCanvas : public testing::Test {
protected:
    void SetUp() override {
        button_ = CreateWindowExW(0, L"BUTTON", L"Pause", WS_POPUP | BS_OWNERDRAW, 0, 0, 120, 40, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(nullptr, button_);
        const HDC screen = GetDC(nullptr);
        dc_ = CreateCompatibleDC(screen);
        bitmap_.Reset(CreateCompatibleBitmap(screen, 120, 40));
        ReleaseDC(nullptr, screen);
        previous_ = SelectObject(dc_, bitmap_.Get());
        const lmvx::UniqueGdiObject marker(CreateSolidBrush(kMarker));
        const RECT all = {0, 0, 120, 40};
        FillRect(dc_, &all, static_cast<HBRUSH>(marker.Get()));
    }
    void TearDown() override {
        SelectObject(dc_, previous_);
        DeleteDC(dc_);
        if (button_) DestroyWindow(button_);
    }

    DRAWITEMSTRUCT Item(UINT type, UINT state) const {
        DRAWITEMSTRUCT item = {};
        item.CtlType = type;
        item.itemState = state;
        item.hwndItem = button_;
        item.hDC = dc_;
        item.rcItem = {0, 0, 120, 40};
        return item;
    }
    COLORREF Pixel(int x, int y) const { return GetPixel(dc_, x, y); }
    // The colour a device of this depth shows for c.
    COLORREF Shown(COLORREF c) const { return GetNearestColor(dc_, c); }

    static constexpr COLORREF kMarker = RGB(1, 200, 3);
    HWND button_ = nullptr;
    HDC dc_ = nullptr;
    lmvx::UniqueGdiObject bitmap_;
    HGDIOBJ previous_ = nullptr;
};

// A one-pixel shadow frame around a face that focus lightens and pushing highlights; other item types
// are left alone.
TEST_F(ButtonCanvas, FrameAndFaceByStateAndNothingForOtherItemTypes) {
    const DRAWITEMSTRUCT other = Item(ODT_STATIC, 0);
    EXPECT_EQ(1, lmvx::DrawOwnerButton(nullptr, &other));
    EXPECT_EQ(Shown(kMarker), Pixel(0, 0));
    EXPECT_EQ(Shown(kMarker), Pixel(60, 20));
    const DRAWITEMSTRUCT plain = Item(ODT_BUTTON, 0);
    EXPECT_EQ(1, lmvx::DrawOwnerButton(nullptr, &plain));
    EXPECT_EQ(Shown(GetSysColor(COLOR_BTNSHADOW)), Pixel(0, 0));
    EXPECT_EQ(Shown(GetSysColor(COLOR_BTNSHADOW)), Pixel(119, 39));
    EXPECT_EQ(Shown(GetSysColor(COLOR_BTNFACE)), Pixel(2, 2));
    const DRAWITEMSTRUCT focused = Item(ODT_BUTTON, ODS_FOCUS);
    lmvx::DrawOwnerButton(nullptr, &focused);
    EXPECT_EQ(Shown(lmvx::LightFaceColor(GetSysColor(COLOR_BTNFACE))), Pixel(2, 2));
    SendMessageW(button_, BM_SETSTATE, TRUE, 0);
    lmvx::DrawOwnerButton(nullptr, &focused);
    EXPECT_EQ(Shown(GetSysColor(COLOR_BTNHIGHLIGHT)), Pixel(2, 2)) << "a focused pushed button is painted pressed";
}

}  // namespace
