// The byte scanners and texts of the memory windows: hex dump lines, memory search strings and patterns, image
// strings, region texts and page steps.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "memory/hex_dump.h"
#include "memory/image_string_scan.h"
#include "memory/memory_string_scan.h"
#include "memory/region_text.h"
#include "memory/search_pattern.h"

namespace {

using namespace lmvx;

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

// Full lines of sixteen bytes; a short last line is padded with blanks; the address wraps at 4 GiB; the
// character column shows "!" as a dot and keeps delete.
TEST(HexDump, LinesOfSixteenBytesRefusedWhenOneByteShortAndTheColonFormCutsTheLastLineEnd) {
    EXPECT_EQ(Dump(Counting(16), 0x00401000, false),
              "00401000 4142434445464748 494A4B4C4D4E4F50 ABCDEFGHIJKLMNOP\r\n");
    EXPECT_EQ(Dump(Counting(17), 0xFFFFFFF8, false),
              "FFFFFFF8 4142434445464748 494A4B4C4D4E4F50 ABCDEFGHIJKLMNOP\r\n"
              "00000008 51                                Q               \r\n");
    const std::string hundred = Dump(Counting(100, 0x30), 0x1000, false);
    EXPECT_EQ(hundred.size(), 7u * 61);
    EXPECT_EQ(hundred.substr(6 * 61, 13), "00001060 9091");
    const std::vector<uint8_t> bytes = {0x21, 0x20, 0x22, 0x7E, 0x7F, 0x80, 0xFF, 0x00,
                                        0x1F, 0x09, 0xC4, 0x41, 0x61, 0x30, 0x2E, 0x23};
    EXPECT_EQ(Dump(bytes, 0, false).substr(43, 16), ". \"~\x7F......Aa0.#");

    // A buffer one byte short and an empty input give nothing; the colon form uses the same buffer size, so its
    // one character longer lines cut the final line end of a short last line (intended).
    for (size_t n : {1u, 16u, 17u, 4096u}) {
        const std::vector<uint8_t> bytes = Counting(n);
        std::vector<char> out(HexDumpBufferSize(n) - 1, 'x');
        EXPECT_EQ(FormatHexDump(bytes.data(), n, out.data(), out.size(), 0), 0u) << n;
        EXPECT_EQ(std::string(out.data(), out.size()), std::string(out.size(), '\0')) << n;
    }
    char out[62] = {'x'};
    EXPECT_EQ(FormatHexDump(nullptr, 0, out, sizeof out, 0), 0u);
    EXPECT_EQ(out[0], '\0');

    EXPECT_EQ(Dump(Counting(16), 0x10, true),
              ":00000010 4142434445464748 494A4B4C4D4E4F50 ABCDEFGHIJKLMNOP\r\n");
    const std::string text = Dump(Counting(17), 0x10, true);
    EXPECT_EQ(text.size(), 2u * 62 - 1);
    EXPECT_EQ(text.substr(62), ":00000020 51                                Q               \r");
    EXPECT_EQ(Dump(Counting(17), 0x10, true, 200).size(), 2u * 62) << "with room to spare the line end is whole";
}

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

std::vector<uint8_t> Utf16(const std::u16string& text, std::vector<uint8_t> bytes = {}) {
    for (char16_t unit : text) bytes.insert(bytes.end(), {static_cast<uint8_t>(unit & 0xFF), static_cast<uint8_t>(unit >> 8)});
    return bytes;
}

TEST(MemoryStringScan, FindsByteAndUtf16StringsOfFiveAndMoreCutInto128AndNeverPastTheChunk) {
    const std::u16string x(128, u'x'), y(128, u'y');
    const struct {
        const char* what;
        std::vector<uint8_t> bytes;
        std::vector<Found> found;
    } cases[] = {
        {"five and more", Bytes(std::string("\0Hello\0Hell\0", 12)), {{1, u"Hello", false}}},
        {"from the first start character", Bytes(" !Hello world!\x10;#"), {{2, u"Hello world!\x10;#", false}}},
        {"Windows-1252 widens", Bytes("\xC4rger\xDF"), {{0, u"\u00C4rger\u00DF", false}}},
        {"no start character", Bytes("\x01\x02!!!!!!~~~~~\x7F"), {}},
        {"UTF-16 once", Utf16(u"Hello", {0}), {{1, u"Hello", true}}},
        {"units without a byte form end a string", Utf16(u"Hello\u20ACWorld\u4E00ab"), {{0, u"Hello", true}, {12, u"World", true}}},
        {"byte runs", Bytes(std::string(300, 'x')), {{0, x, false}, {128, x, false}, {256, x.substr(0, 44), false}}},
        {"UTF-16 runs", Utf16(std::u16string(300, u'y')), {{0, y, true}, {256, y, true}, {512, y.substr(0, 44), true}}},
        {"a whole last unit", Utf16(u"abcde"), {{0, u"abcde", true}}},
        {"half a last unit", {'a', 0, 'b', 0, 'c', 0, 'd', 0, 'e'}, {}},
        {"empty", {}, {}},
    };
    for (const auto& c : cases) EXPECT_EQ(Scan(c.bytes), c.found) << c.what;
}

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

TEST(ImageStringScan, LengthChangeAndCharacterRulesRunsCutInto255NeverPastTheFileAndStopWhenTheSinkDoes) {
    const std::string z(1, '\0');
    EXPECT_EQ(Extract("aaaaaa" + z + "abcde" + z), (Strings{u"abcde"}));
    EXPECT_EQ(Extract(z + Utf16("abc") + z + "abcd" + z), (Strings{u"abc"}));
    EXPECT_EQ(Extract(Utf16("aab") + z + z + "aabbb" + z + "aabbaa" + z + "ab" + z), (Strings{u"aabbaa"}));
    // "}" cannot start a string; closing brackets, "?" and the sharp s continue one.
    EXPECT_EQ(Extract("}}abc?)]>\xDF" + z), (Strings{u"abc?)]>\u00DF"}));
    EXPECT_FALSE(lmvx::IsImageStartChar(0xDF));
    EXPECT_FALSE(lmvx::IsImageContinueChar('~'));
    EXPECT_TRUE(lmvx::IsImageStartChar('"'));
    std::string run;
    for (int i = 0; i < 600; ++i) run += static_cast<char>('a' + i % 26);
    const std::u16string wide(run.begin(), run.end());
    EXPECT_EQ(Extract(run), (Strings{wide.substr(0, 255), wide.substr(255, 255), wide.substr(510)}));
    EXPECT_EQ(Extract(std::string(1, '\0') + "xyzw"), Strings{});
    EXPECT_EQ(Extract("qwert"), (Strings{u"qwert"}));
    const std::string file = "first" + std::string(1, '\0') + "second";
    int calls = 0;
    lmvx::ImageStringSink stopAtFirst{[](void* context, const char16_t*, size_t) { return ++*static_cast<int*>(context), false; },
                                      &calls};
    EXPECT_FALSE(lmvx::ExtractImageStrings(reinterpret_cast<const uint8_t*>(file.data()), file.size(), stopAtFirst));
    EXPECT_EQ(calls, 1);
}

constexpr uint32_t kCommit = 0x1000, kReserve = 0x2000, kFree = 0x10000;
constexpr uint32_t kPrivate = 0x20000, kMapped = 0x40000, kImage = 0x1000000;

TEST(RegionText, ProtectionByExactValueStateTypeAndAddressParse) {
    const std::pair<uint32_t, const wchar_t*> cases[] = {
        {0x01, L"PAGE_NOACCESS"}, {0x04, L"PAGE_READWRITE"}, {0x80, L"PAGE_EXECUTE_WRITECOPY"},
        {0x00, L"Undef"}, {0x104, L"0x00000104"}, {0x204, L"0x00000204"},
    };
    for (const auto& [protect, text] : cases) EXPECT_EQ(RegionProtectText(kCommit, protect, L"Undef"), text) << protect;
    EXPECT_EQ(RegionProtectText(kFree, 0x04, L"Undef"), L"Undef");
    EXPECT_EQ(RegionStateText(kCommit), L"MEM_COMMIT");
    EXPECT_EQ(RegionStateText(kReserve), L"MEM_RESERVE");
    EXPECT_EQ(RegionStateText(kFree), L"MEM_FREE");
    EXPECT_EQ(RegionStateText(0x3000), L"0x00003000");
    EXPECT_EQ(RegionTypeText(kCommit, kImage, L"U"), L"MEM_IMAGE");
    EXPECT_EQ(RegionTypeText(kReserve, kMapped, L"U"), L"MEM_MAPPED");
    EXPECT_EQ(RegionTypeText(kCommit, kPrivate, L"U"), L"MEM_PRIVATE");
    EXPECT_EQ(RegionTypeText(kCommit, 0x80000, L"U"), L"0x00080000");
    EXPECT_EQ(RegionTypeText(kFree, kPrivate, L"U"), L"U");
    // The parse ignores a "0x" prefix and whatever follows the number.
    const std::pair<const wchar_t*, uint64_t> addresses[] = {
        {L"0x00400000  [Image: a.exe]", 0x400000}, {L"7ffe0000", 0x7FFE0000}, {L"0x000000014000A000 (a.exe+0xA000)", 0x14000A000},
        {L"nothing", 0}, {L"", 0}, {L"0x", 0}};
    for (const auto& [text, address] : addresses) EXPECT_EQ(ParseHexAddress(text), address) << text;
}

TEST(RegionText, DescriptionReadsBackAsTheSameAddressAndPageStepsSkipUncommittedRegions) {
    const std::wstring inModule = DescribeAddress(0x7FF612340010, true, L"a.exe+0x10", kCommit, kImage);
    EXPECT_EQ(inModule, L"0x00007FF612340010 (a.exe+0x10)");
    EXPECT_EQ(ParseHexAddress(inModule), 0x7FF612340010u);
    EXPECT_EQ(DescribeAddress(0, false, L"0x0000000000000000", kFree, 0), L"0x0000000000000000 (MEM_FREE)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kCommit, kMapped), L"N (MEM_MAPPED)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kCommit, kPrivate), L"N (MEM_PRIVATE)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kReserve, kImage), L"N (MEM_IMAGE)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kCommit, 0), L"N");
    // Page steps skip uncommitted regions.
    EXPECT_EQ(NextPageAddress(0x11000, kCommit, 0x10000, 0x10000), 0x11000u);
    EXPECT_EQ(NextPageAddress(0x11000, kReserve, 0x10000, 0x10000), 0x20000u);
    EXPECT_EQ(NextPageAddress(0x11000, kFree, 0x10000, 0x30000), 0x40000u);
    EXPECT_EQ(PreviousPageAddress(0x1F000, kCommit, 0x10000), 0x1F000u);
    EXPECT_EQ(PreviousPageAddress(0x1F000, kReserve, 0x10000), 0xF000u);
}

// Plain texts match as case-insensitive contains; wildcards, lists, blanks and non-ASCII go to the shell.
TEST(SearchPattern, PlainTextsMatchAsCaseInsensitiveContainsAndTheRestGoToTheShell) {
    const lmvx::SearchPattern abc(L"abc");
    ASSERT_TRUE(abc.IsPlain());
    EXPECT_EQ(abc.ShellPattern(), L"*abc*");
    for (const wchar_t* text : {L"xxABCxx", L"abc", L"xxaBc"}) EXPECT_TRUE(abc.Matches(text)) << text;
    for (const wchar_t* text : {L"ab", L"a_bc"}) EXPECT_FALSE(abc.Matches(text)) << text;
    EXPECT_TRUE(lmvx::SearchPattern(L"").IsPlain());
    EXPECT_TRUE(lmvx::SearchPattern(L"").Matches(L"anything"));
    for (const wchar_t* text : {L"a*c", L"a?c", L"a;b", L"two words", L"\u00c4rger"})
        EXPECT_FALSE(lmvx::SearchPattern(text).IsPlain()) << text;
}

}  // namespace
