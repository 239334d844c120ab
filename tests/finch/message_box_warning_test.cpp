// The plain message-box form of the warning, used where the task dialog is missing.
#include "libs/finch/message_box_warning.h"
#include "box_finder.h"

#include <gtest/gtest.h>

#include <future>
#include <string>

namespace {

std::wstring UniqueCaption(const wchar_t* what) {
    return std::wstring(L"Lumivex message box ") + what + L" " + std::to_wstring(GetCurrentProcessId());
}

std::future<int> ShowOnWorker(const std::wstring& title, const std::wstring& text, const std::wstring& caption) {
    return std::async(std::launch::async, [=] {
        return finch::ShowWarningMessageBox(nullptr, title.c_str(), text.c_str(), caption.c_str());
    });
}

TEST(MessageBoxWarning, HeadlineAboveMessageInOneText) {
    const std::wstring caption = UniqueCaption(L"headline");
    std::future<int> answer = ShowOnWorker(L"Call Stack failed.", L"Could not create call stack.", caption);
    HWND box = finch_test::WaitForDialogBox(caption.c_str());
    ASSERT_NE(nullptr, box);
    EXPECT_TRUE(finch_test::AnyTextEquals(finch_test::ChildTexts(box),
                                          L"Call Stack failed.\n\nCould not create call stack."));
    finch_test::PressButton(box, IDOK);
    EXPECT_EQ(IDOK, answer.get());
}

TEST(MessageBoxWarning, EmptyHeadlineLeavesNoBlankLines) {
    const std::wstring caption = UniqueCaption(L"no headline");
    std::future<int> answer = ShowOnWorker(L"", L"Lumivex could not run the specified command.", caption);
    HWND box = finch_test::WaitForDialogBox(caption.c_str());
    ASSERT_NE(nullptr, box);
    EXPECT_TRUE(finch_test::AnyTextEquals(finch_test::ChildTexts(box), L"Lumivex could not run the specified command."));
    finch_test::PressButton(box, IDOK);
    EXPECT_EQ(IDOK, answer.get());
}

TEST(MessageBoxWarning, EscapeAnswersOk) {
    const std::wstring caption = UniqueCaption(L"escape");
    std::future<int> answer = ShowOnWorker(L"Thread not found.", L"Escape closes the box.", caption);
    HWND box = finch_test::WaitForDialogBox(caption.c_str());
    ASSERT_NE(nullptr, box);
    // What the dialog manager sends for the Escape key.
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    EXPECT_EQ(IDOK, answer.get());
}

}  // namespace
