#include "common/owner_button.h"
#include "common/owner_button_layout.h"

#include <iterator>

#include "common/unique_resource.h"

namespace lmvx {

namespace {

// Restores the DC's previous object when it goes out of scope.
class SelectionGuard {
public:
    SelectionGuard(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~SelectionGuard() { SelectObject(dc_, previous_); }
    SelectionGuard(const SelectionGuard&) = delete;
    SelectionGuard& operator=(const SelectionGuard&) = delete;

private:
    HDC dc_;
    HGDIOBJ previous_;
};

COLORREF FillColor(ButtonFill fill, COLORREF face, COLORREF lightFace, COLORREF highlight) {
    switch (fill) {
    case ButtonFill::LightFace: return lightFace;
    case ButtonFill::Highlight: return highlight;
    case ButtonFill::Face: break;
    }
    return face;
}

}  // namespace

int DrawOwnerButton(HWND window, const DRAWITEMSTRUCT* item) {
    if (item == nullptr || item->CtlType != ODT_BUTTON) return 1;
    (void)window;   // the button itself is item->hwndItem
    const HWND button = item->hwndItem;
    const HDC dc = item->hDC;

    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const COLORREF highlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF lightFace = LightFaceColor(face);

    const HICON icon = reinterpret_cast<HICON>(SendMessageW(button, WM_GETICON, ICON_SMALL, 0));
    wchar_t text[512] = {};
    GetWindowTextW(button, text, static_cast<int>(std::size(text)));

    const OwnerButtonLayout layout = LayOutOwnerButton(item->rcItem, icon != nullptr);
    FillRect(dc, &item->rcItem, GetSysColorBrush(COLOR_BTNSHADOW));   // what the inner fill leaves is the frame

    const bool selected = (item->itemState & ODS_SELECTED) != 0;
    const bool pushed = (SendMessageW(button, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
    const bool focused = (item->itemState & ODS_FOCUS) != 0;
    const COLORREF fillColor = FillColor(ChooseButtonFill(selected, pushed, focused), face, lightFace, highlight);
    const UniqueGdiObject fillBrush(CreateSolidBrush(fillColor));
    FillRect(dc, &layout.inner, static_cast<HBRUSH>(fillBrush.Get()));

    if (icon != nullptr) DrawIconEx(dc, layout.icon.x, layout.icon.y, icon, 16, 16, 0, nullptr, DI_NORMAL);

    const COLORREF previousText = SetTextColor(dc, GetSysColor(COLOR_3DDKSHADOW));
    const COLORREF previousBack = SetBkColor(dc, fillColor);
    const HFONT font = reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0));
    {
        SelectionGuard fontSelection(dc, font ? static_cast<HGDIOBJ>(font) : GetStockObject(DEFAULT_GUI_FONT));
        RECT textRect = layout.text;
        DrawTextW(dc, text, -1, &textRect, DT_SINGLELINE | DT_VCENTER);
    }
    SetBkColor(dc, previousBack);
    SetTextColor(dc, previousText);
    return 1;
}

}  // namespace lmvx
