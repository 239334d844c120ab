#include "memory/memory_string_scan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Found {
    size_t offset;
    std::u16string text;
    bool utf16;
    bool operator==(const Found&) const = default;
};

std::vector<Found> Scan(const std::vector<uint8_t>& bytes) {
    std::vector<Found> found;
    lmvx::MemoryStringSink sink{[](void* context, size_t offset, const char16_t* text, size_t length, bool utf16) {
                                    static_cast<std::vector<Found>*>(context)->push_back(
                                        {offset, std::u16string(text, length), utf16});
                                },
                                &found};
    lmvx::ScanMemoryChunk(bytes.data(), bytes.size(), sink);
    return found;
}

std::vector<uint8_t> Bytes(const std::string& text) { return {text.begin(), text.end()}; }

std::vector<uint8_t> Utf16(const std::u16string& text) {
    std::vector<uint8_t> bytes;
    for (char16_t unit : text) {
        bytes.push_back(static_cast<uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<uint8_t>(unit >> 8));
    }
    return bytes;
}

TEST(MemoryStringScan, ByteStringsOfFiveAndMore) {
    EXPECT_EQ(Scan(Bytes(std::string("\0Hello\0Hell\0", 12))), (std::vector<Found>{{1, u"Hello", false}}));
    // A string that starts with a blank or "!" is found from its first start character.
    EXPECT_EQ(Scan(Bytes(" !Hello world!\x10;#")), (std::vector<Found>{{2, u"Hello world!\x10;#", false}}));
    // Umlauts of Windows-1252 widen to their code points.
    EXPECT_EQ(Scan(Bytes("\xC4rger\xDF")), (std::vector<Found>{{0, u"\u00C4rger\u00DF", false}}));
    EXPECT_TRUE(Scan(Bytes("\x01\x02!!!!!!~~~~~\x7F")).empty());
}

TEST(MemoryStringScan, Utf16HelloIsFoundOnceAsUtf16) {
    std::vector<uint8_t> bytes = {0x00};
    for (uint8_t b : Utf16(u"Hello")) bytes.push_back(b);
    bytes.push_back(0);
    EXPECT_EQ(Scan(bytes), (std::vector<Found>{{1, u"Hello", true}}));
    // Units with no single-byte form end a string.
    EXPECT_EQ(Scan(Utf16(u"Hello\u20ACWorld\u4E00ab")),
              (std::vector<Found>{{0, u"Hello", true}, {12, u"World", true}}));
}

TEST(MemoryStringScan, LongRunsAreCutInto128) {
    const std::vector<Found> bytes = Scan(Bytes(std::string(300, 'x')));
    ASSERT_EQ(bytes.size(), 3u);
    EXPECT_EQ(bytes[0], (Found{0, std::u16string(128, u'x'), false}));
    EXPECT_EQ(bytes[1], (Found{128, std::u16string(128, u'x'), false}));
    EXPECT_EQ(bytes[2], (Found{256, std::u16string(44, u'x'), false}));
    const std::vector<Found> wide = Scan(Utf16(std::u16string(300, u'y')));
    ASSERT_EQ(wide.size(), 3u);
    EXPECT_EQ(wide[1].offset, 256u);
    EXPECT_EQ(wide[2].text.size(), 44u);
}

TEST(MemoryStringScan, NeverReadsPastTheChunk) {
    // The last byte holds no whole unit: a UTF-16 string ends before it.
    EXPECT_EQ(Scan({'a', 0, 'b', 0, 'c', 0, 'd', 0, 'e', 0}), (std::vector<Found>{{0, u"abcde", true}}));
    EXPECT_EQ(Scan({'a', 0, 'b', 0, 'c', 0, 'd', 0, 'e'}), (std::vector<Found>{}));
    EXPECT_TRUE(Scan({}).empty());
}

}  // namespace
