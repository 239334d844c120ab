#include "hostname_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace heron {
namespace {

TEST(CopyHostname, CopiesWhatFitsTerminatedAndClearsForAnEmptyName) {
    wchar_t field[6];
    std::fill(std::begin(field), std::end(field), L'#');
    CopyHostname(field, std::size(field), L"host");
    EXPECT_EQ(std::wstring(L"host"), field);
    CopyHostname(field, std::size(field), L"abcdefghij");
    EXPECT_EQ(std::wstring(L"abcde"), field);
    CopyHostname(field, std::size(field), L"");
    EXPECT_EQ(std::wstring(), field);
}

}  // namespace
}  // namespace heron
