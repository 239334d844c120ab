// Wide-text helpers: bounded copies, trimming system messages, the one-text form of a warning.
#include "libs/finch/wide_text.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace {

TEST(CopyBounded, CopiesWhatFitsAndTerminates) {
    wchar_t buffer[4] = {L'#', L'#', L'#', L'#'};
    finch::CopyBounded(buffer, 4, L"abcdef");
    EXPECT_STREQ(L"abc", buffer);
    finch::CopyBounded(buffer, 4, L"x");
    EXPECT_STREQ(L"x", buffer);
}

TEST(CopyBounded, NullSourceGivesEmptyText) {
    wchar_t buffer[4] = {L'#', L'#', L'#', L'#'};
    finch::CopyBounded(buffer, 4, nullptr);
    EXPECT_STREQ(L"", buffer);
}

TEST(CopyBounded, ZeroCountWritesNothing) {
    wchar_t buffer[1] = {L'#'};
    finch::CopyBounded(buffer, 0, L"abc");
    EXPECT_EQ(L'#', buffer[0]);
}

TEST(TrailingLineBreaks, AreLeftOff) {
    const wchar_t* text = L"The system cannot find the file specified.\r\n";
    EXPECT_EQ(std::wcslen(text) - 2, finch::LengthWithoutTrailingLineBreaks(text, std::wcslen(text)));
    const wchar_t* padded = L"Access is denied. \r\n\r\n";
    EXPECT_EQ(std::wcslen(L"Access is denied."), finch::LengthWithoutTrailingLineBreaks(padded, std::wcslen(padded)));
}

TEST(TrailingLineBreaks, InnerLineBreaksStay) {
    const wchar_t* text = L"one\r\ntwo";
    EXPECT_EQ(std::wcslen(text), finch::LengthWithoutTrailingLineBreaks(text, std::wcslen(text)));
    EXPECT_EQ(0u, finch::LengthWithoutTrailingLineBreaks(L"\r\n", 2));
    EXPECT_EQ(0u, finch::LengthWithoutTrailingLineBreaks(nullptr, 5));
}

TEST(WarningMessage, HeadlineAboveMessage) {
    EXPECT_EQ(L"Call Stack failed.\n\nCould not create call stack.",
              finch::ComposeWarningMessage(L"Call Stack failed.", L"Could not create call stack."));
}

TEST(WarningMessage, EmptyHeadlineLeavesOnlyTheMessage) {
    EXPECT_EQ(L"message", finch::ComposeWarningMessage(L"", L"message"));
    EXPECT_EQ(L"message", finch::ComposeWarningMessage(nullptr, L"message"));
    EXPECT_EQ(L"headline", finch::ComposeWarningMessage(L"headline", nullptr));
}

}  // namespace
