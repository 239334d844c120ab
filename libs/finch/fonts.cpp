// Fonts: the shared bold dialog font and fonts by face.
#include "platform/finch.h"
#include "unique_handle.h"

namespace {

LOGFONTW MessageFontDescription() {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) return metrics.lfMessageFont;
    LOGFONTW description = {};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(description), &description);
    return description;
}

finch::UniqueFont CreateBoldMessageFont() {
    LOGFONTW description = MessageFontDescription();
    description.lfWeight = FW_BOLD;
    return finch::UniqueFont(CreateFontIndirectW(&description));
}

// Made when the library loads so that the exported handle is ready before any dialog reads it;
// released when the library unloads.
const finch::UniqueFont boldFont = CreateBoldMessageFont();

}  // namespace

FINCH_API HFONT APIP_hFontBold = boldFont.Get();

void APIP_SetWindowFont(HWND window, HFONT font, BOOL redraw) {
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), MAKELPARAM(redraw ? TRUE : FALSE, 0));
}

HFONT APIP_LoadFont(const wchar_t* face, int width, int height) {
    LOGFONTW description = {};
    description.lfHeight = height;
    description.lfWidth = width;
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfOutPrecision = OUT_DEFAULT_PRECIS;
    description.lfClipPrecision = CLIP_DEFAULT_PRECIS;
    description.lfQuality = DEFAULT_QUALITY;
    description.lfPitchAndFamily = DEFAULT_PITCH | FF_DONTCARE;
    if (face != nullptr) lstrcpynW(description.lfFaceName, face, LF_FACESIZE);
    return CreateFontIndirectW(&description);
}
