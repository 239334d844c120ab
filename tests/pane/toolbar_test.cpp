// The toolbar on a real window: its buttons, icons, and tooltips in the current language, never texts
// beside the icons.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <memory>
#include <string>

#include "app/shared_icons.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "test_host.h"
#include "perf/toolbar.h"
#include "perf/toolbar_buttons.h"
#include "wren.h"

namespace {

using lmvx::kToolbarButtons;

// What the toolbar answers its tooltip for a button, as when the mouse rests on it.
std::wstring TooltipText(HWND toolbar, unsigned command) {
    NMTTDISPINFOW info{};
    info.hdr.hwndFrom = reinterpret_cast<HWND>(SendMessageW(toolbar, TB_GETTOOLTIPS, 0, 0));
    info.hdr.idFrom = command;
    info.hdr.code = TTN_GETDISPINFOW;
    info.lpszText = info.szText;   // where a toolbar may copy the text
    SendMessageW(toolbar, WM_NOTIFY, command, reinterpret_cast<LPARAM>(&info));
    if (info.lpszText && !IS_INTRESOURCE(info.lpszText)) return info.lpszText;
    return info.szText;
}

class ToolbarTest : public ::testing::Test {
protected:
    void TearDown() override {
        wren::SetCurrentLangID(UIL_LANGMODULE::English);
        UIL_LangModule.SelectLanguage(UIL_LANGMODULE::English);
    }
    lmvx_test::TestMainWindow host;
    lmvx::Toolbar toolbar;
};

// Eighteen buttons, enabled, with the table's commands and fifteen images that are the shared icons, not
// blanks; no button shows its text beside its icon (each is narrower than icon and text together); the
// tooltips are the button texts in English and German.
TEST_F(ToolbarTest, ButtonsImagesTooltipsAndNoTextBesideTheIcons) {
    ASSERT_TRUE(lmvx::ToolbarCreate(toolbar, host.Get()));
    EXPECT_TRUE(GetWindowLongPtrW(toolbar.window, GWL_STYLE) & WS_VISIBLE);
    EXPECT_EQ(SendMessageW(toolbar.window, TB_BUTTONCOUNT, 0, 0), static_cast<LRESULT>(kToolbarButtons.size()));
    EXPECT_EQ(ImageList_GetImageCount(toolbar.images.Get()), 15);
    HDC dc = GetDC(toolbar.window);
    HGDIOBJ old = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(toolbar.window, WM_GETFONT, 0, 0)));
    for (size_t i = 0; i < kToolbarButtons.size(); ++i) {
        TBBUTTON button{};
        ASSERT_TRUE(SendMessageW(toolbar.window, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button)));
        if (kToolbarButtons[i].image == lmvx::kToolbarSeparator) {
            EXPECT_TRUE(button.fsStyle & BTNS_SEP) << i;
            continue;
        }
        EXPECT_EQ(button.idCommand, static_cast<int>(kToolbarButtons[i].command)) << i;
        EXPECT_EQ(button.iBitmap, kToolbarButtons[i].image) << i;
        EXPECT_TRUE(button.fsState & TBSTATE_ENABLED) << i;
        EXPECT_FALSE(button.fsStyle & BTNS_SHOWTEXT) << i;
        RECT rect{};
        ASSERT_TRUE(SendMessageW(toolbar.window, TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&rect)));
        SIZE text{};
        GetTextExtentPoint32W(dc, kToolbarButtons[i].english, lstrlenW(kToolbarButtons[i].english), &text);
        EXPECT_LT(rect.right - rect.left, 16 + text.cx) << kToolbarButtons[i].english;
    }
    SelectObject(dc, old);
    ReleaseDC(toolbar.window, dc);
    for (int image = 0; image < 15; ++image) {
        IMAGEINFO info{};
        ASSERT_TRUE(ImageList_GetImageInfo(toolbar.images.Get(), image, &info)) << image;
    }
    // Two different icons give two different pictures.
    auto pixelsOf = [&](int image) {
        HDC screen = GetDC(nullptr);
        const lmvx::UniqueMemoryDc memory(CreateCompatibleDC(screen));
        const lmvx::UniqueBitmap bitmap(CreateCompatibleBitmap(screen, 16, 16));
        ReleaseDC(nullptr, screen);
        HGDIOBJ previous = SelectObject(memory.Get(), bitmap.Get());
        const RECT all{0, 0, 16, 16};
        FillRect(memory.Get(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        ImageList_Draw(toolbar.images.Get(), image, memory.Get(), 0, 0, ILD_NORMAL);
        std::wstring pixels;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x) pixels += static_cast<wchar_t>(GetPixel(memory.Get(), x, y) & 0xFFFF);
        SelectObject(memory.Get(), previous);
        return pixels;
    };
    EXPECT_NE(pixelsOf(0), pixelsOf(7));
    EXPECT_NE(pixelsOf(3), pixelsOf(14));

    // The tooltips follow the language the toolbar was created in.
    wren::SetCurrentLangID(UIL_LANGMODULE::German);
    UIL_LangModule.SelectLanguage(UIL_LANGMODULE::German);
    lmvx::Toolbar german;
    ASSERT_TRUE(lmvx::ToolbarCreate(german, host.Get()));
    for (const auto& spec : kToolbarButtons) {
        if (spec.image == lmvx::kToolbarSeparator) continue;
        EXPECT_EQ(TooltipText(toolbar.window, spec.command), spec.english) << spec.command;
        EXPECT_EQ(TooltipText(german.window, spec.command), spec.german) << spec.command;
    }
}

}  // namespace
