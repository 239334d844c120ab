#include "props/page_helpers.h"

#include "finch.h"
#include "resource.h"

namespace lmvx {

const wchar_t* Text(unsigned id) { return UIL_LangModule.GetLangString(id); }

void EndPageWithoutContext(HWND page) {
    MessageBoxW(page, Text(IDS_UNEXPECTED_ERROR), Text(IDS_PROCESS_PROPERTIES), MB_OK | MB_ICONERROR);
    DestroyWindow(page);   // a page is a modeless dialog: ending it is destroying it
}

void TrackMenuAndSend(HWND page, HMENU menu) {
    POINT cursor{};
    GetCursorPos(&cursor);
    const UINT chosen = static_cast<UINT>(
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, cursor.x, cursor.y, 0, page, nullptr));
    if (chosen != 0) SendMessageW(page, WM_COMMAND, MAKEWPARAM(chosen, 0), 0);
}

}  // namespace lmvx
