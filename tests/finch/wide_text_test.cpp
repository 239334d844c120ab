// Wide-text helpers: bounded copies, trimming system messages, the one-text form of a warning.
#include "libs/finch/wide_text.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace {

TEST(CopyBounded, CopiesWhatFitsTerminatedNullAsEmptyAndNothingForZeroCount) {
    wchar_t buffer[4] = {L'#', L'#', L'#', L'#'};
    finch::CopyBounded(buffer, 4, L"abcdef");
    EXPECT_STREQ(L"abc", buffer);
    finch::CopyBounded(buffer, 4, L"x");
    EXPECT_STREQ(L"x", buffer);
    finch::CopyBounded(buffer, 0, L"abc");
    EXPECT_STREQ(L"x", buffer);
    finch::CopyBounded(buffer, 4, nullptr);
    EXPECT_STREQ(L"", buffer);
}

TEST(TrailingLineBreaks, OnlyTrailingBreaksAndSpacesBeforeThemAreLeftOff) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"The system cannot find the file specified.\r\n", L"The system cannot find the file specified."},
        {L"Access is denied. \r\n\r\n", L"Access is denied."},
        {L"one\r\ntwo", L"one\r\ntwo"},
        {L"\r\n", L""},
    };
    for (const auto& [text, kept] : cases)
        EXPECT_EQ(std::wcslen(kept), finch::LengthWithoutTrailingLineBreaks(text, std::wcslen(text))) << text;
    EXPECT_EQ(0u, finch::LengthWithoutTrailingLineBreaks(nullptr, 5));
}

TEST(WarningMessage, HeadlineAboveMessageAndNoBlankLinesWithoutOne) {
    EXPECT_EQ(L"Call Stack failed.\n\nCould not create call stack.",
              finch::ComposeWarningMessage(L"Call Stack failed.", L"Could not create call stack."));
    EXPECT_EQ(L"message", finch::ComposeWarningMessage(L"", L"message"));
    EXPECT_EQ(L"message", finch::ComposeWarningMessage(nullptr, L"message"));
    EXPECT_EQ(L"headline", finch::ComposeWarningMessage(L"headline", nullptr));
}

}  // namespace
