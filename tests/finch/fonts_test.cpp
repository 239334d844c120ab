// Fonts: the shared bold font, fonts by face, setting a window's font.
#include "platform/finch.h"
#include "libs/finch/unique_handle.h"

#include <gtest/gtest.h>


namespace {

LOGFONTW Describe(HFONT font) {
    LOGFONTW description = {};
    EXPECT_EQ(static_cast<int>(sizeof(description)), GetObjectW(font, sizeof(description), &description));
    return description;
}

TEST(LoadFont, KeepsFaceWidthAndHeight) {
    const struct {
        const wchar_t* face;
        int width, height;
    } requests[] = {{L"Courier New", 0, -11}, {L"Tahoma", 0, -13}, {L"Courier New", 7, 16}};
    for (const auto& request : requests) {
        finch::UniqueFont font(APIP_LoadFont(request.face, request.width, request.height));
        ASSERT_TRUE(font);
        const LOGFONTW description = Describe(font.Get());
        EXPECT_STREQ(request.face, description.lfFaceName);
        EXPECT_EQ(request.height, description.lfHeight);
        EXPECT_EQ(request.width, description.lfWidth);
        EXPECT_EQ(FW_NORMAL, description.lfWeight);
    }
}

// The shared bold font is the bold message font; a window set to a font reports it.
TEST(BoldFont, IsTheBoldMessageFontAndAWindowSetToAFontReportsIt) {
    ASSERT_NE(nullptr, APIP_hFontBold);
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0));
    const LOGFONTW description = Describe(APIP_hFontBold);
    EXPECT_STREQ(metrics.lfMessageFont.lfFaceName, description.lfFaceName);
    EXPECT_EQ(metrics.lfMessageFont.lfHeight, description.lfHeight);
    EXPECT_EQ(FW_BOLD, description.lfWeight);
    finch::UniqueWindow label(CreateWindowExW(0, L"STATIC", L"General Information", WS_POPUP, 0, 0, 100, 20,
                                              nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
    ASSERT_TRUE(label);
    APIP_SetWindowFont(label.Get(), APIP_hFontBold, TRUE);
    EXPECT_EQ(reinterpret_cast<LRESULT>(APIP_hFontBold), SendMessageW(label.Get(), WM_GETFONT, 0, 0));
    finch::UniqueFont monospaced(APIP_LoadFont(L"Courier New", 0, -11));
    APIP_SetWindowFont(label.Get(), monospaced.Get(), FALSE);
    EXPECT_EQ(reinterpret_cast<LRESULT>(monospaced.Get()), SendMessageW(label.Get(), WM_GETFONT, 0, 0));
    // The window goes before the font it uses.
    label.Reset();
}

}  // namespace
