#include <gtest/gtest.h>

#include "os_version.h"

TEST(OsVersion, VistaIsSixAndEverythingAfter) {
    EXPECT_FALSE(wren::IsVersionVistaOrHigher(5));
    EXPECT_TRUE(wren::IsVersionVistaOrHigher(6));
    EXPECT_TRUE(wren::IsVersionVistaOrHigher(10));
}

TEST(OsVersion, Windows2000IsExactlyFivePointZero) {
    EXPECT_TRUE(wren::IsVersionWindows2000(5, 0));
    EXPECT_FALSE(wren::IsVersionWindows2000(5, 1));   // XP
    EXPECT_FALSE(wren::IsVersionWindows2000(5, 2));   // Server 2003
    EXPECT_FALSE(wren::IsVersionWindows2000(4, 0));   // NT 4
    EXPECT_FALSE(wren::IsVersionWindows2000(6, 0));
}
