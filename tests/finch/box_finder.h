// Finds a dialog box that another thread of this test shows, so that the test can read and close it.
#pragma once
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "window_texts.h"

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

// The texts of all the box's child windows.
using lmvx_test::AnyTextContains;
inline std::vector<std::wstring> ChildTexts(HWND box) { return lmvx_test::DescendantTexts(box); }

inline bool AnyTextEquals(const std::vector<std::wstring>& texts, const std::wstring& whole) {
    return std::find(texts.begin(), texts.end(), whole) != texts.end();
}

// Answers the box as a click on the given button would.
inline void PressButton(HWND box, int buttonId) {
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(buttonId, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, buttonId)));
}

}  // namespace finch_test
