// Shows a warning box on a worker thread so that the test can read and answer it.
#pragma once
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "message_pump.h"
#include "window_texts.h"

namespace finch_test {

using lmvx_test::AnyTextContains;

// Answers the box as a click on the given button would.
inline void PressButton(HWND box, int buttonId) {
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(buttonId, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, buttonId)));
}

using ShowWarning = int (*)(const wchar_t* title, const wchar_t* text, const wchar_t* caption);

// Shows the warning under a caption of its own on a worker thread, waits for the visible dialog (class #32770)
// with that caption, hands it to answer, and returns what the show call returned.
inline int ShowAndAnswer(ShowWarning show, const wchar_t* title, const wchar_t* text,
                         const std::function<void(HWND box, const std::vector<std::wstring>& texts)>& answer) {
    static int serial = 0;
    const std::wstring caption = L"Lumivex warning " + std::to_wstring(GetCurrentProcessId()) + L"." + std::to_wstring(++serial);
    std::future<int> shown = std::async(std::launch::async, [=] { return show(title, text, caption.c_str()); });
    HWND box = nullptr;
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return (box = FindWindowW(L"#32770", caption.c_str())) && IsWindowVisible(box); }, 20000))
        << "no box with the caption appeared";
    answer(box, lmvx_test::DescendantTexts(box));
    return shown.get();
}

}  // namespace finch_test
