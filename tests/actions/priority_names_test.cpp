// Priority classes by command and by name.
#include "mainwnd/priority_names.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "command_ids.h"
#include "finch.h"
#include "string_ids.h"

namespace {

struct PriorityRow {
    unsigned commandId;
    unsigned priorityClass;
    const wchar_t* englishName;
};

const PriorityRow kRows[] = {
    {IDM_PRIORITY_REALTIME, REALTIME_PRIORITY_CLASS, L"Realtime"},
    {IDM_PRIORITY_HIGH, HIGH_PRIORITY_CLASS, L"High"},
    {IDM_PRIORITY_ABOVE_NORMAL, ABOVE_NORMAL_PRIORITY_CLASS, L"Above Normal"},
    {IDM_PRIORITY_NORMAL, NORMAL_PRIORITY_CLASS, L"Normal"},
    {IDM_PRIORITY_BELOW_NORMAL, BELOW_NORMAL_PRIORITY_CLASS, L"Below Normal"},
    {IDM_PRIORITY_IDLE, IDLE_PRIORITY_CLASS, L"Idle"},
};

class PriorityNames : public testing::Test {
protected:
    static void SetUpTestSuite() {
        UIL_LangModule.Init(GetModuleHandleW(nullptr), L"Lumivex Priority Test", L"test", UIL_LANGMODULE::English);
    }
    void TearDown() override { UIL_LangModule.SelectLanguage(UIL_LANGMODULE::English); }
};

TEST_F(PriorityNames, EachCommandSetsItsClass) {
    for (const PriorityRow& row : kRows) EXPECT_EQ(row.priorityClass, lmvx::PriorityClassOfCommand(row.commandId));
}

TEST_F(PriorityNames, OtherCommandsSetNoClass) {
    // There is no command 201, and 207 is the pause item of the same menu.
    for (unsigned commandId : {0u, 199u, 201u, static_cast<unsigned>(IDM_PRIORITY_PAUSED), 256u, 32u}) {
        EXPECT_EQ(0u, lmvx::PriorityClassOfCommand(commandId)) << commandId;
    }
}

TEST_F(PriorityNames, EachClassHasItsEnglishName) {
    for (const PriorityRow& row : kRows) EXPECT_STREQ(row.englishName, lmvx::PriorityClassName(row.priorityClass));
}

TEST_F(PriorityNames, OtherValuesHaveTheEmptyNameNotUnknown) {
    for (unsigned value : {0u, 1u, 0x20000u, 0x40000u, static_cast<unsigned>(IDM_PRIORITY_HIGH)}) {
        EXPECT_STREQ(L"", lmvx::PriorityClassName(value)) << value;
        EXPECT_EQ(0u, lmvx::PriorityClassNameId(value));
    }
}

TEST_F(PriorityNames, NamesFollowTheLanguage) {
    ASSERT_TRUE(UIL_LangModule.SelectLanguage(UIL_LANGMODULE::German));
    EXPECT_STRNE(L"Realtime", lmvx::PriorityClassName(REALTIME_PRIORITY_CLASS));
    EXPECT_STRNE(L"", lmvx::PriorityClassName(REALTIME_PRIORITY_CLASS));
}

}  // namespace
