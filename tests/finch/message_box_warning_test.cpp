// The plain message-box form of the warning, used where the task dialog is missing.
#include "libs/finch/message_box_warning.h"
#include "box_finder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace finch_test;

int Show(const wchar_t* title, const wchar_t* text, const wchar_t* caption) {
    return finch::ShowWarningMessageBox(nullptr, title, text, caption);
}

TEST(MessageBoxWarning, HeadlineAboveMessageInOneTextAndOkForTheButtonAndEscape) {
    EXPECT_EQ(IDOK, ShowAndAnswer(Show, L"Call Stack failed.", L"Could not create call stack.", [](HWND box, const auto& texts) {
        EXPECT_EQ(std::count(texts.begin(), texts.end(), L"Call Stack failed.\n\nCould not create call stack."), 1);
        PressButton(box, IDOK);
    }));
    // An empty headline leaves no blank lines; Escape is what the dialog manager sends as IDCANCEL.
    EXPECT_EQ(IDOK, ShowAndAnswer(Show, L"", L"Lumivex could not run the specified command.", [](HWND box, const auto& texts) {
        EXPECT_EQ(std::count(texts.begin(), texts.end(), L"Lumivex could not run the specified command."), 1);
        PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    }));
}

}  // namespace
