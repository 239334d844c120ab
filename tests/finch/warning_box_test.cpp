// The warning box, shown from a worker thread and answered by the test.
#include "platform/finch.h"
#include "box_finder.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

namespace {

// A caption no other window of the session has.
std::wstring UniqueCaption(const wchar_t* what) {
    return std::wstring(L"Lumivex ") + what + L" " + std::to_wstring(GetCurrentProcessId());
}

struct ShownWarning {
    std::future<int> answer;
    HWND box = nullptr;
};

ShownWarning ShowWarningOnWorker(const std::wstring& title, const std::wstring& text, const std::wstring& caption) {
    ShownWarning shown;
    shown.answer = std::async(std::launch::async, [=] {
        return UIP_ShowWarning(nullptr, title.c_str(), text.c_str(), caption.c_str());
    });
    shown.box = finch_test::WaitForDialogBox(caption.c_str());
    return shown;
}

TEST(WarningBox, ShowsHeadlineAndMessageUnderItsCaption) {
    const std::wstring caption = UniqueCaption(L"warning test");
    ShownWarning shown = ShowWarningOnWorker(L"Call Stack failed.", L"Could not create call stack.", caption);
    ASSERT_NE(nullptr, shown.box) << "no box with the caption appeared";
    const std::vector<std::wstring> texts = finch_test::ChildTexts(shown.box);
    EXPECT_TRUE(finch_test::AnyTextContains(texts, L"Call Stack failed."));
    EXPECT_TRUE(finch_test::AnyTextContains(texts, L"Could not create call stack."));
    finch_test::PressButton(shown.box, IDOK);
    EXPECT_EQ(IDOK, shown.answer.get());
}

TEST(WarningBox, EmptyHeadlineShowsTheMessage) {
    const std::wstring caption = UniqueCaption(L"message only");
    ShownWarning shown = ShowWarningOnWorker(L"", L"Lumivex could not run the specified command.", caption);
    ASSERT_NE(nullptr, shown.box);
    EXPECT_TRUE(finch_test::AnyTextContains(finch_test::ChildTexts(shown.box),
                                            L"Lumivex could not run the specified command."));
    finch_test::PressButton(shown.box, IDOK);
    EXPECT_EQ(IDOK, shown.answer.get());
}

TEST(WarningBox, ClosingTheWindowAnswersOk) {
    const std::wstring caption = UniqueCaption(L"closed");
    ShownWarning shown = ShowWarningOnWorker(L"Thread not found.", L"The close box ends the warning.", caption);
    ASSERT_NE(nullptr, shown.box);
    PostMessageW(shown.box, WM_CLOSE, 0, 0);
    EXPECT_EQ(IDOK, shown.answer.get());
}

}  // namespace
