#include <gtest/gtest.h>

#include "stored_value.h"

using namespace wren;

namespace {
constexpr unsigned long kTypeString = 1;   // REG_SZ
constexpr unsigned long kTypeQword = 11;   // REG_QWORD
constexpr unsigned long kStored = 0x12345678;
constexpr unsigned long kDefault = 1000;
}  // namespace

TEST(DwordOrDefault, FourByteDwordIsTheStoredValue) {
    EXPECT_EQ(DwordOrDefault(kStoredTypeDword, 4, kStored, kDefault), kStored);
}

TEST(DwordOrDefault, AnyOtherTypeOrSizeIsTheDefault) {
    EXPECT_EQ(DwordOrDefault(kTypeString, 4, kStored, kDefault), kDefault);
    EXPECT_EQ(DwordOrDefault(kStoredTypeBinary, 4, kStored, kDefault), kDefault);
    EXPECT_EQ(DwordOrDefault(kTypeQword, 8, kStored, kDefault), kDefault);
    EXPECT_EQ(DwordOrDefault(kStoredTypeDword, 2, kStored, kDefault), kDefault);
    EXPECT_EQ(DwordOrDefault(kStoredTypeDword, 0, kStored, kDefault), kDefault);
}

TEST(BinaryBlockFits, BinaryUpToTheBufferSizeFits) {
    EXPECT_TRUE(BinaryBlockFits(kStoredTypeBinary, 52, 52));
    EXPECT_TRUE(BinaryBlockFits(kStoredTypeBinary, 48, 52));
    EXPECT_TRUE(BinaryBlockFits(kStoredTypeBinary, 0, 52));
}

TEST(BinaryBlockFits, LargerBlocksAndOtherTypesDoNot) {
    EXPECT_FALSE(BinaryBlockFits(kStoredTypeBinary, 56, 52));
    EXPECT_FALSE(BinaryBlockFits(kStoredTypeDword, 4, 52));
    EXPECT_FALSE(BinaryBlockFits(kTypeString, 52, 52));
}

TEST(SettingsKeyPath, CompanyThenApplicationThenSettings) {
    EXPECT_EQ(SettingsKeyPath(L"Lumivex"), L"Software\\Orvane Software\\Lumivex\\Settings");
}

TEST(SettingsKeyPath, NoApplicationNameNoKey) { EXPECT_TRUE(SettingsKeyPath(L"").empty()); }
