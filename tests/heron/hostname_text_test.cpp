#include "hostname_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace heron {
namespace {

TEST(CopyHostname, CopiesAShortNameWhole) {
    wchar_t field[16];
    std::fill(std::begin(field), std::end(field), L'#');
    CopyHostname(field, std::size(field), L"localhost");
    EXPECT_EQ(std::wstring(L"localhost"), field);
}

TEST(CopyHostname, CutsALongNameAndStillTerminates) {
    wchar_t field[6];
    std::fill(std::begin(field), std::end(field), L'#');
    CopyHostname(field, std::size(field), L"abcdefghij");
    EXPECT_EQ(std::wstring(L"abcde"), field);
}

TEST(CopyHostname, EmptyNameClearsTheField) {
    wchar_t field[8] = L"old";
    CopyHostname(field, std::size(field), L"");
    EXPECT_EQ(std::wstring(), field);
}

}  // namespace
}  // namespace heron
