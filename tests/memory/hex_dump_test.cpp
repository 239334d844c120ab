#include "memory/hex_dump.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using lmvx::FormatHexDump;
using lmvx::FormatHexDumpColon;
using lmvx::HexDumpBufferSize;

std::vector<uint8_t> Counting(size_t n, uint8_t first = 0x41) {
    std::vector<uint8_t> bytes(n);
    for (size_t i = 0; i < n; ++i) bytes[i] = static_cast<uint8_t>(first + i);
    return bytes;
}

// The dump as text, with the buffer the viewer gives it (or `size`); checks the returned length.
std::string Dump(const std::vector<uint8_t>& bytes, uint32_t address, bool colon, size_t size = 0) {
    std::vector<char> out(size ? size : HexDumpBufferSize(bytes.size()), 'x');
    const auto format = colon ? FormatHexDumpColon : FormatHexDump;
    const size_t length = format(bytes.data(), bytes.size(), out.data(), out.size(), address);
    const std::string text(out.data());
    EXPECT_EQ(length, text.size());
    return text;
}

TEST(HexDump, SixteenBytesAreOneFullLine) {
    EXPECT_EQ(Dump(Counting(16), 0x00401000, false),
              "00401000 4142434445464748 494A4B4C4D4E4F50 ABCDEFGHIJKLMNOP\r\n");
}

TEST(HexDump, SeventeenBytesPadTheSecondLineWithBlanks) {
    const std::string text = Dump(Counting(17), 0xFFFFFFF8, false);
    EXPECT_EQ(text, "FFFFFFF8 4142434445464748 494A4B4C4D4E4F50 ABCDEFGHIJKLMNOP\r\n"
                    "00000008 51                                Q               \r\n");
}

TEST(HexDump, CharacterColumnExcludesTheExclamationMarkAndKeepsDelete) {
    const std::vector<uint8_t> bytes = {0x21, 0x20, 0x22, 0x7E, 0x7F, 0x80, 0xFF, 0x00,
                                        0x1F, 0x09, 0xC4, 0x41, 0x61, 0x30, 0x2E, 0x23};
    EXPECT_EQ(Dump(bytes, 0, false).substr(43, 16), ". \"~\x7F......Aa0.#");
}

TEST(HexDump, RefusesABufferOneByteShortAndAnEmptyInput) {
    for (size_t n : {1u, 16u, 17u, 4096u}) {
        const std::vector<uint8_t> bytes = Counting(n);
        std::vector<char> out(HexDumpBufferSize(n) - 1, 'x');
        EXPECT_EQ(FormatHexDump(bytes.data(), n, out.data(), out.size(), 0), 0u) << n;
        EXPECT_EQ(std::string(out.data(), out.size()), std::string(out.size(), '\0')) << n;
    }
    char out[62] = {'x'};
    EXPECT_EQ(FormatHexDump(nullptr, 0, out, sizeof out, 0), 0u);
    EXPECT_EQ(out[0], '\0');
}

TEST(HexDump, LastHundredBytesOfARegionAreSevenLines) {
    const std::string text = Dump(Counting(100, 0x30), 0x1000, false);
    EXPECT_EQ(text.size(), 7u * 61);
    EXPECT_EQ(text.substr(6 * 61, 13), "00001060 9091");
}

TEST(HexDumpColon, SameBufferCutsTheFinalLineEndOfAShortLastLine) {
    // The colon lines are one character longer but the buffer is not enlarged: intended.
    EXPECT_EQ(Dump(Counting(16), 0x10, true),
              ":00000010 4142434445464748 494A4B4C4D4E4F50 ABCDEFGHIJKLMNOP\r\n");
    const std::string text = Dump(Counting(17), 0x10, true);
    EXPECT_EQ(text.size(), 2u * 62 - 1);
    EXPECT_EQ(text.substr(62), ":00000020 51                                Q               \r");
    // With room to spare the line end is whole.
    EXPECT_EQ(Dump(Counting(17), 0x10, true, 200).size(), 2u * 62);
}

}  // namespace
