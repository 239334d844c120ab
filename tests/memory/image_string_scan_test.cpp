#include "memory/image_string_scan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::u16string> Extract(const std::string& file) {
    std::vector<std::u16string> found;
    lmvx::ImageStringSink sink{[](void* context, const char16_t* text, size_t length) {
                                   static_cast<std::vector<std::u16string>*>(context)->emplace_back(text, length);
                                   return true;
                               },
                               &found};
    EXPECT_TRUE(lmvx::ExtractImageStrings(reinterpret_cast<const uint8_t*>(file.data()), file.size(), sink));
    return found;
}

std::string Utf16(const std::string& ascii) {
    std::string bytes;
    for (char c : ascii) bytes += std::string{c, '\0'};
    return bytes;
}

using Strings = std::vector<std::u16string>;

TEST(ImageStringScan, LengthAndChangeRules) {
    const std::string z(1, '\0');
    EXPECT_EQ(Extract("aaaaaa" + z + "abcde" + z), (Strings{u"abcde"}));
    EXPECT_EQ(Extract(z + Utf16("abc") + z + "abcd" + z), (Strings{u"abc"}));
    EXPECT_EQ(Extract(Utf16("aab") + z + z + "aabbb" + z + "aabbaa" + z + "ab" + z), (Strings{u"aabbaa"}));
}

TEST(ImageStringScan, RunsAreCutInto255) {
    std::string run;
    for (int i = 0; i < 600; ++i) run += static_cast<char>('a' + i % 26);
    const Strings found = Extract(run);
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].size(), 255u);
    EXPECT_EQ(found[1].size(), 255u);
    EXPECT_EQ(found[2].size(), 90u);
    EXPECT_EQ(found[1][0], u'a' + 255 % 26);
}

TEST(ImageStringScan, ClassesDifferFromTheMemorySearch) {
    // "}" cannot start a string; closing brackets, "?" and the sharp s continue one.
    EXPECT_EQ(Extract("}}abc?)]>\xDF" + std::string(1, '\0')), (Strings{u"abc?)]>\u00DF"}));
    EXPECT_FALSE(lmvx::IsImageStartChar(0xDF));
    EXPECT_FALSE(lmvx::IsImageContinueChar('~'));
    EXPECT_TRUE(lmvx::IsImageStartChar('"'));
}

TEST(ImageStringScan, NeverReadsPastTheFileAndStopsWhenTheSinkDoes) {
    EXPECT_EQ(Extract(std::string(1, '\0') + "xyzw"), Strings{});
    EXPECT_EQ(Extract("qwert"), (Strings{u"qwert"}));
    const std::string file = "first" + std::string(1, '\0') + "second";
    int calls = 0;
    lmvx::ImageStringSink stopAtFirst{[](void* context, const char16_t*, size_t) {
                                          ++*static_cast<int*>(context);
                                          return false;
                                      },
                                      &calls};
    EXPECT_FALSE(lmvx::ExtractImageStrings(reinterpret_cast<const uint8_t*>(file.data()), file.size(), stopAtFirst));
    EXPECT_EQ(calls, 1);
}

}  // namespace
