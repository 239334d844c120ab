#include "memory/memory_ui.h"

#include <cstdarg>
#include <vector>

#include "finch.h"
#include "wren.h"

namespace lmvx {

UniqueFont LoadMonospacedFont() { return UniqueFont(APIP_LoadFont(L"Courier New", 0, -11)); }

HICON SmallProgramIcon(unsigned resourceId) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resourceId), IMAGE_ICON, 16, 16,
                                         LR_SHARED));
}

void DecorateButton(HWND dialog, int buttonId, unsigned iconId) {
    SendDlgItemMessageW(dialog, buttonId, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(SmallProgramIcon(iconId)));
    wren::Embold(dialog, buttonId);
}

void SetAnsiTextIfChanged(HWND dialog, int controlId, const char* text) {
    HWND control = GetDlgItem(dialog, controlId);
    const int length = GetWindowTextLengthA(control);
    std::vector<char> current(static_cast<size_t>(length) + 1);
    GetWindowTextA(control, current.data(), length + 1);
    if (lstrcmpA(current.data(), text) != 0) SetWindowTextA(control, text);
}

std::wstring ControlText(HWND dialog, int controlId, int limit) {
    std::vector<wchar_t> text(static_cast<size_t>(limit) + 1);
    GetDlgItemTextW(dialog, controlId, text.data(), limit + 1);
    return text.data();
}

const wchar_t* FileNameOfPath(const wchar_t* path) {
    const wchar_t* name = path;
    for (const wchar_t* c = path; *c; ++c) {
        if (*c == L'\\' || *c == L'/') name = c + 1;
    }
    return name;
}

}  // namespace lmvx
