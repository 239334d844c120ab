// Priority class names in each language. (Which class each command sets, and that other commands set
// none, is tested on real processes with the program's priority action.)
#include "mainwnd/priority_names.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "command_ids.h"
#include "finch.h"
#include "string_ids.h"

namespace {

struct PriorityRow {
    unsigned priorityClass;
    const wchar_t* englishName;
};

const PriorityRow kRows[] = {
    {REALTIME_PRIORITY_CLASS, L"Realtime"},         {HIGH_PRIORITY_CLASS, L"High"},
    {ABOVE_NORMAL_PRIORITY_CLASS, L"Above Normal"}, {NORMAL_PRIORITY_CLASS, L"Normal"},
    {BELOW_NORMAL_PRIORITY_CLASS, L"Below Normal"}, {IDLE_PRIORITY_CLASS, L"Idle"},
};

class PriorityNames : public testing::Test {
protected:
    static void SetUpTestSuite() {
        UIL_LangModule.Init(GetModuleHandleW(nullptr), L"Lumivex Priority Test", L"test", UIL_LANGMODULE::English);
    }
    void TearDown() override { UIL_LangModule.SelectLanguage(UIL_LANGMODULE::English); }
};

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
