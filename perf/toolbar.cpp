#include "perf/toolbar.h"

#include <array>

#include "app/shared_icons.h"
#include "perf/toolbar_buttons.h"
#include "wren.h"

namespace lmvx {
namespace {

UniqueImageList CreateButtonImages() {
    UniqueImageList images(ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 18, 0));
    if (!images) return images;
    for (unsigned short iconId : kToolbarImageIcons) ImageList_AddIcon(images.Get(), SharedIconById(iconId).small);
    return images;
}

std::array<TBBUTTON, kToolbarButtons.size()> ButtonsInCurrentLanguage() {
    std::array<TBBUTTON, kToolbarButtons.size()> buttons{};
    for (size_t i = 0; i < kToolbarButtons.size(); ++i) {
        const ToolbarButtonSpec& spec = kToolbarButtons[i];
        TBBUTTON& button = buttons[i];
        if (spec.image == kToolbarSeparator) {
            button.fsStyle = BTNS_SEP;
            continue;
        }
        button.iBitmap = spec.image;
        button.idCommand = static_cast<int>(spec.command);
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_AUTOSIZE;
        button.iString = reinterpret_cast<INT_PTR>(wren::HardcodeLangString(spec.english, spec.german));
    }
    return buttons;
}

}  // namespace

bool ToolbarCreate(Toolbar& toolbar, HWND parent) {
    toolbar.window = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", WS_CHILD | TBSTYLE_LIST | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS,
                                     0, 0, 0, 0, parent,
                                     reinterpret_cast<HMENU>(static_cast<INT_PTR>(kToolbarControlId)),
                                     GetModuleHandleW(nullptr), nullptr);
    if (!toolbar.window) return false;
    SendMessageW(toolbar.window, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    // Texts of buttons without BTNS_SHOWTEXT become tooltips only.
    SendMessageW(toolbar.window, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
    toolbar.images = CreateButtonImages();
    SendMessageW(toolbar.window, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(toolbar.images.Get()));
    auto buttons = ButtonsInCurrentLanguage();
    SendMessageW(toolbar.window, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
    SendMessageW(toolbar.window, TB_AUTOSIZE, 0, 0);
    ShowWindow(toolbar.window, SW_SHOWNORMAL);
    return true;
}

int ToolbarHeight(const Toolbar& toolbar) {
    if (!toolbar.window || !IsWindowVisible(toolbar.window)) return 0;
    RECT rect{};
    GetWindowRect(toolbar.window, &rect);
    return rect.bottom - rect.top;
}

}  // namespace lmvx
