// The warning box, shown from a worker thread and answered by the test.
#include "platform/finch.h"
#include "box_finder.h"

#include <gtest/gtest.h>

namespace {

using namespace finch_test;

int Show(const wchar_t* title, const wchar_t* text, const wchar_t* caption) {
    return UIP_ShowWarning(nullptr, title, text, caption);
}

TEST(WarningBox, ShowsHeadlineAndMessageAndAnswersOkForTheButtonAndTheCloseBox) {
    EXPECT_EQ(IDOK, ShowAndAnswer(Show, L"Call Stack failed.", L"Could not create call stack.", [](HWND box, const auto& texts) {
        EXPECT_TRUE(AnyTextContains(texts, L"Call Stack failed."));
        EXPECT_TRUE(AnyTextContains(texts, L"Could not create call stack."));
        PressButton(box, IDOK);
    }));
    EXPECT_EQ(IDOK, ShowAndAnswer(Show, L"", L"Lumivex could not run the specified command.", [](HWND box, const auto& texts) {
        EXPECT_TRUE(AnyTextContains(texts, L"Lumivex could not run the specified command."));
        PostMessageW(box, WM_CLOSE, 0, 0);
    }));
}

}  // namespace
