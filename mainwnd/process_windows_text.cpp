#include "mainwnd/process_windows_text.h"

#include "string_ids.h"

namespace lmvx {

unsigned CloseWindowTextId(int windowCount) {
    return windowCount < 2 ? IDS_MENU_CLOSE_WINDOW : IDS_MENU_CLOSE_WINDOW_MANY;
}

unsigned BringToFrontTextId(int windowCount) {
    return windowCount < 2 ? IDS_MENU_BRING_TO_FRONT : IDS_MENU_BRING_TO_FRONT_MANY;
}

bool WindowItemsEnabled(int windowCount) {
    return windowCount > 0;
}

}  // namespace lmvx
