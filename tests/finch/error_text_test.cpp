// The system's message text for an error code.
#include "platform/finch.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>
#include <thread>

namespace {

std::wstring RawSystemText(DWORD code) {
    wchar_t text[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, text, 512, nullptr);
    return text;
}

TEST(ErrorCodeText, HasNoTrailingLineBreak) {
    const std::wstring text = APIP_GetErrorCodeStr(ERROR_FILE_NOT_FOUND);
    ASSERT_FALSE(text.empty());
    EXPECT_NE(L'\n', text.back());
    EXPECT_NE(L'\r', text.back());
    // Only the line break is gone: the text is the system's own.
    const std::wstring raw = RawSystemText(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(0u, raw.find(text));
    EXPECT_GT(raw.size(), text.size());
}

TEST(ErrorCodeText, UnknownCodeGivesEmptyText) {
    const wchar_t* text = APIP_GetErrorCodeStr(0x2FFFFFFF);
    ASSERT_NE(nullptr, text);
    EXPECT_STREQ(L"", text);
}

TEST(ErrorCodeText, OtherThreadsDoNotOverwriteThisThreadsText) {
    const wchar_t* mine = APIP_GetErrorCodeStr(ERROR_FILE_NOT_FOUND);
    const std::wstring before = mine;
    std::wstring theirs;
    std::thread other([&] { theirs = APIP_GetErrorCodeStr(ERROR_ACCESS_DENIED); });
    other.join();
    EXPECT_NE(before, theirs);
    EXPECT_EQ(before, mine);
}

}  // namespace
