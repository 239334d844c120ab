// Reading windows back in tests: a window's text and the texts of everything inside it.
#pragma once
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace lmvx_test {

// The window's text. WM_GETTEXT rather than GetWindowTextW, which does not read the controls of other
// processes; empty when the window hangs or does not answer within half a minute (a loaded machine may
// take seconds).
inline std::wstring WindowText(HWND window) {
    wchar_t text[1024] = {};
    SendMessageTimeoutW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, 30000, nullptr);
    return text;
}

// The clipboard's Unicode text; empty when the clipboard cannot be opened or holds none.
inline std::wstring ClipboardText() {
    std::wstring text;
    if (!OpenClipboard(nullptr)) return text;
    HANDLE data = GetClipboardData(CF_UNICODETEXT);
    if (const auto* chars = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr) text = chars;
    if (data) GlobalUnlock(data);
    CloseClipboard();
    return text;
}

// All descendants' texts, for finding a message in a box whatever control shows it.
inline std::vector<std::wstring> DescendantTexts(HWND window) {
    std::vector<std::wstring> texts;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM parameter) -> BOOL {
            reinterpret_cast<std::vector<std::wstring>*>(parameter)->push_back(WindowText(child));
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&texts));
    return texts;
}

inline bool AnyTextContains(const std::vector<std::wstring>& texts, const std::wstring& part) {
    return std::any_of(texts.begin(), texts.end(),
                       [&](const std::wstring& text) { return text.find(part) != std::wstring::npos; });
}

// Whether the window's own text or any descendant's contains part.
inline bool AnyTextContains(HWND window, const std::wstring& part) {
    return WindowText(window).find(part) != std::wstring::npos || AnyTextContains(DescendantTexts(window), part);
}

}  // namespace lmvx_test
