// The system's message text for an error code.
#include "platform/finch.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

std::wstring RawSystemText(DWORD code) {
    wchar_t text[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, text, 512, nullptr);
    return text;
}

// The system's own text without its trailing line break, "" for an unknown code, and a text per thread that
// other threads' calls do not overwrite.
TEST(ErrorCodeText, TheSystemsTextWithoutTheLineBreakPerThread) {
    const wchar_t* mine = APIP_GetErrorCodeStr(ERROR_FILE_NOT_FOUND);
    const std::wstring text = mine;
    ASSERT_FALSE(text.empty());
    EXPECT_NE(L'\n', text.back());
    EXPECT_NE(L'\r', text.back());
    const std::wstring raw = RawSystemText(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(0u, raw.find(text));
    EXPECT_GT(raw.size(), text.size());
    std::wstring theirs, unknown = L"x";
    std::thread other([&] { theirs = APIP_GetErrorCodeStr(ERROR_ACCESS_DENIED); unknown = APIP_GetErrorCodeStr(0x2FFFFFFF); });
    other.join();
    EXPECT_NE(text, theirs);
    EXPECT_EQ(text, mine);
    EXPECT_EQ(L"", unknown);
}

}  // namespace
