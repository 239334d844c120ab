// Finds a dialog box that another thread of this test shows, so that the test can read and close it.
#pragma once
#include <windows.h>

#include <chrono>
#include <string>
#include <thread>

namespace finch_test {

// The top-level dialog (class #32770) with this caption, waiting up to the limit for it to appear.
inline HWND WaitForDialogBox(const wchar_t* caption, std::chrono::milliseconds limit = std::chrono::seconds(20)) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    for (;;) {
        HWND box = FindWindowW(L"#32770", caption);
        if (box != nullptr && IsWindowVisible(box)) return box;
        if (std::chrono::steady_clock::now() >= deadline) return nullptr;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

// The texts of all the box's child windows, one per line.
inline std::wstring ChildTexts(HWND box) {
    std::wstring texts;
    EnumChildWindows(
        box,
        [](HWND child, LPARAM context) -> BOOL {
            wchar_t text[512] = {};
            GetWindowTextW(child, text, 512);
            *reinterpret_cast<std::wstring*>(context) += std::wstring(text) + L"\n";
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&texts));
    return texts;
}

// Answers the box as a click on the given button would.
inline void PressButton(HWND box, int buttonId) {
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(buttonId, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, buttonId)));
}

}  // namespace finch_test
