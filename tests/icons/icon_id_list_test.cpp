#include <gtest/gtest.h>

#include "icon_id_list.h"

TEST(IconIdHeader, ReadsEveryIconDefineInOrder) {
    const auto ids = ParseIconIdHeader("#define IDI_LUMIVEX 130\n#define   IDI_THREAD\t233  // a thread\n");
    ASSERT_EQ(ids.size(), 2u);
    EXPECT_EQ(ids[0].name, "IDI_LUMIVEX");
    EXPECT_EQ(ids[0].id, 130);
    EXPECT_EQ(ids[1].name, "IDI_THREAD");
    EXPECT_EQ(ids[1].id, 233);
}

TEST(IconIdHeader, IgnoresGuardsCommentsAndOtherDefines) {
    const auto ids = ParseIconIdHeader(
        "// #define IDI_OLD 1\n#ifndef GUARD_H\n#define GUARD_H\n#define IDC_STATIC -1\n#define IDI_HELP 342\n#endif\n");
    ASSERT_EQ(ids.size(), 1u);
    EXPECT_EQ(ids[0].name, "IDI_HELP");
    EXPECT_EQ(ids[0].id, 342);
}

TEST(IconIdHeader, HandlesWindowsLineEndsAndEmptyText) {
    EXPECT_TRUE(ParseIconIdHeader("").empty());
    const auto ids = ParseIconIdHeader("#define IDI_RUN 322\r\n#define IDI_PORT 252\r\n");
    ASSERT_EQ(ids.size(), 2u);
    EXPECT_EQ(ids[1].id, 252);
}
