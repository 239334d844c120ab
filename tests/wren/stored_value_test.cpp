#include <gtest/gtest.h>

#include "os_version.h"
#include "stored_value.h"

using namespace wren;

namespace {
constexpr unsigned long kTypeString = 1;   // REG_SZ
constexpr unsigned long kTypeQword = 11;   // REG_QWORD

TEST(StoredValue, OnlyAFourByteDwordIsStoredValueAndOnlyBinaryUpToTheBufferFits) {
    constexpr unsigned long kStored = 0x12345678, kDefault = 1000;
    EXPECT_EQ(DwordOrDefault(kStoredTypeDword, 4, kStored, kDefault), kStored);
    const std::pair<unsigned long, unsigned long> others[] = {
        {kTypeString, 4}, {kStoredTypeBinary, 4}, {kTypeQword, 8}, {kStoredTypeDword, 2}, {kStoredTypeDword, 0}};
    for (const auto& [type, size] : others) EXPECT_EQ(DwordOrDefault(type, size, kStored, kDefault), kDefault) << type << "/" << size;
    for (unsigned long size : {52ul, 48ul, 0ul}) EXPECT_TRUE(BinaryBlockFits(kStoredTypeBinary, size, 52)) << size;
    EXPECT_FALSE(BinaryBlockFits(kStoredTypeBinary, 56, 52));
    EXPECT_FALSE(BinaryBlockFits(kStoredTypeDword, 4, 52));
    EXPECT_FALSE(BinaryBlockFits(kTypeString, 52, 52));
}

TEST(SettingsKeyPath, CompanyThenApplicationThenSettingsAndNoKeyWithoutAName) {
    EXPECT_EQ(SettingsKeyPath(L"Lumivex"), L"Software\\Orvane Software\\Lumivex\\Settings");
    EXPECT_TRUE(SettingsKeyPath(L"").empty());
}

TEST(OsVersion, VistaIsSixAndLaterAndWindows2000ExactlyFivePointZero) {
    EXPECT_FALSE(IsVersionVistaOrHigher(5));
    EXPECT_TRUE(IsVersionVistaOrHigher(6));
    EXPECT_TRUE(IsVersionVistaOrHigher(10));
    EXPECT_TRUE(IsVersionWindows2000(5, 0));
    const std::pair<int, int> others[] = {{5, 1}, {5, 2}, {4, 0}, {6, 0}};   // XP, Server 2003, NT 4, Vista
    for (const auto& [major, minor] : others) EXPECT_FALSE(IsVersionWindows2000(major, minor)) << major << "." << minor;
}

}  // namespace
