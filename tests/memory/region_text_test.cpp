#include "memory/region_text.h"

#include <gtest/gtest.h>

namespace {

using namespace lmvx;

constexpr uint32_t kCommit = 0x1000, kReserve = 0x2000, kFree = 0x10000;
constexpr uint32_t kPrivate = 0x20000, kMapped = 0x40000, kImage = 0x1000000;

TEST(RegionText, ProtectionByExactValue) {
    const struct {
        uint32_t protect;
        const wchar_t* text;
    } cases[] = {
        {0x01, L"PAGE_NOACCESS"}, {0x02, L"PAGE_READONLY"}, {0x04, L"PAGE_READWRITE"}, {0x08, L"PAGE_WRITECOPY"},
        {0x10, L"PAGE_EXECUTE"}, {0x20, L"PAGE_EXECUTE_READ"}, {0x40, L"PAGE_EXECUTE_READWRITE"},
        {0x80, L"PAGE_EXECUTE_WRITECOPY"}, {0x00, L"Undef"}, {0x104, L"0x00000104"}, {0x204, L"0x00000204"},
    };
    for (const auto& c : cases) EXPECT_EQ(RegionProtectText(kCommit, c.protect, L"Undef"), c.text) << c.protect;
    EXPECT_EQ(RegionProtectText(kFree, 0x04, L"Undef"), L"Undef");
}

TEST(RegionText, StateAndType) {
    EXPECT_EQ(RegionStateText(kCommit), L"MEM_COMMIT");
    EXPECT_EQ(RegionStateText(kReserve), L"MEM_RESERVE");
    EXPECT_EQ(RegionStateText(kFree), L"MEM_FREE");
    EXPECT_EQ(RegionStateText(0x3000), L"0x00003000");
    EXPECT_EQ(RegionTypeText(kCommit, kImage, L"U"), L"MEM_IMAGE");
    EXPECT_EQ(RegionTypeText(kReserve, kMapped, L"U"), L"MEM_MAPPED");
    EXPECT_EQ(RegionTypeText(kCommit, kPrivate, L"U"), L"MEM_PRIVATE");
    EXPECT_EQ(RegionTypeText(kCommit, 0x80000, L"U"), L"0x00080000");
    EXPECT_EQ(RegionTypeText(kFree, kPrivate, L"U"), L"U");
}

TEST(RegionText, AddressParseIgnoresThePrefixAndTheTail) {
    EXPECT_EQ(ParseHexAddress(L"0x00400000  [Image: a.exe]"), 0x400000u);
    EXPECT_EQ(ParseHexAddress(L"7ffe0000"), 0x7FFE0000u);
    EXPECT_EQ(ParseHexAddress(L"0x000000014000A000 (a.exe+0xA000)"), 0x14000A000u);
    EXPECT_EQ(ParseHexAddress(L"nothing"), 0u);
    EXPECT_EQ(ParseHexAddress(L""), 0u);
    EXPECT_EQ(ParseHexAddress(L"0x"), 0u);
}

TEST(RegionText, DescriptionReadsBackAsTheSameAddress) {
    const std::wstring inModule = DescribeAddress(0x7FF612340010, true, L"a.exe+0x10", kCommit, kImage);
    EXPECT_EQ(inModule, L"0x00007FF612340010 (a.exe+0x10)");
    EXPECT_EQ(ParseHexAddress(inModule), 0x7FF612340010u);
    EXPECT_EQ(DescribeAddress(0, false, L"0x0000000000000000", kFree, 0), L"0x0000000000000000 (MEM_FREE)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kCommit, kMapped), L"N (MEM_MAPPED)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kCommit, kPrivate), L"N (MEM_PRIVATE)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kReserve, kImage), L"N (MEM_IMAGE)");
    EXPECT_EQ(DescribeAddress(1, false, L"N", kCommit, 0), L"N");
}

TEST(RegionText, PageStepsSkipUncommittedRegions) {
    EXPECT_EQ(NextPageAddress(0x11000, kCommit, 0x10000, 0x10000), 0x11000u);
    EXPECT_EQ(NextPageAddress(0x11000, kReserve, 0x10000, 0x10000), 0x20000u);
    EXPECT_EQ(NextPageAddress(0x11000, kFree, 0x10000, 0x30000), 0x40000u);
    EXPECT_EQ(PreviousPageAddress(0x1F000, kCommit, 0x10000), 0x1F000u);
    EXPECT_EQ(PreviousPageAddress(0x1F000, kReserve, 0x10000), 0xF000u);
}

}  // namespace
