// Every option the program keeps: unwritten it reads as the program's default, written it comes back.
#include <gtest/gtest.h>

#include <vector>

#include "test_application.h"
#include "wren.h"

namespace {

enum class OptionType { Bool, Dword, Binary };

struct ProgramOption {
    const wchar_t* name;
    OptionType type;
    unsigned defaultValue;   // for blocks: their length in bytes
};

const ProgramOption kProgramOptions[] = {
    {L"RequestElevation", OptionType::Bool, 0},
    {L"ShutdownPrivilegeNoWarn", OptionType::Bool, 0},
    {L"LaunchOnCAF", OptionType::Bool, 0},
    {L"ShowTrayIcon", OptionType::Bool, 1},
    {L"HideWhenMinimized", OptionType::Bool, 0},
    {L"ShowTrayPerfWnd", OptionType::Bool, 1},
    {L"ShowTrayPerfCPU", OptionType::Bool, 1},
    {L"ShowTrayPerfSysCPU", OptionType::Bool, 1},
    {L"ShowTrayPerfPhysMem", OptionType::Bool, 1},
    {L"StatusBarShowCPUPerf", OptionType::Bool, 1},
    {L"StatusBarShowMemPerf", OptionType::Bool, 1},
    {L"BlankZero", OptionType::Bool, 1},
    {L"PreferMB", OptionType::Bool, 0},
    {L"ResolveHostnames", OptionType::Bool, 1},
    {L"ShowUnnamedHandles", OptionType::Bool, 0},
    {L"Topmost", OptionType::Bool, 0},
    {L"TaskListSortMode", OptionType::Dword, 1},
    {L"TaskListSortReverse", OptionType::Bool, 0},
    {L"UpdateInterval", OptionType::Dword, 1000},
    {L"TaskListColumns", OptionType::Binary, 52},
    {L"MainWndPlacement", OptionType::Binary, 44},
};

class ProgramOptions : public ::testing::TestWithParam<ProgramOption> {
protected:
    ScopedTestApplication application_{L"WrenOptionTableTests"};
};

TEST_P(ProgramOptions, UnwrittenReadsTheDefaultAndWrittenComesBack) {
    const ProgramOption& option = GetParam();
    wren::REGOPTIONS& store = wren::regOptions;
    switch (option.type) {
    case OptionType::Bool: {
        const int other = option.defaultValue ? 0 : 1;
        EXPECT_EQ(store.GetOptionBOOL(option.name, static_cast<int>(option.defaultValue)),
                  static_cast<int>(option.defaultValue));
        store.SetOptionBOOL(option.name, other);
        EXPECT_EQ(store.GetOptionBOOL(option.name, static_cast<int>(option.defaultValue)), other);
        break;
    }
    case OptionType::Dword: {
        const unsigned other = option.defaultValue * 3 + 1;
        EXPECT_EQ(store.GetOptionDWORD(option.name, option.defaultValue), option.defaultValue);
        store.SetOptionDWORD(option.name, other);
        EXPECT_EQ(store.GetOptionDWORD(option.name, option.defaultValue), other);
        break;
    }
    case OptionType::Binary: {
        std::vector<BYTE> buffer(option.defaultValue);
        unsigned bytesRead = 0;
        store.GetOptionBINARY(option.name, buffer.data(), option.defaultValue, &bytesRead);
        EXPECT_NE(bytesRead, option.defaultValue);
        const std::vector<BYTE> written(option.defaultValue, 0x3c);
        store.SetOptionBINARY(option.name, written.data(), option.defaultValue);
        store.GetOptionBINARY(option.name, buffer.data(), option.defaultValue, &bytesRead);
        EXPECT_EQ(bytesRead, option.defaultValue);
        EXPECT_EQ(buffer, written);
        break;
    }
    }
    EXPECT_TRUE(ReadRawValue(option.name).exists) << "stored under its own name";
}

std::string OptionName(const ::testing::TestParamInfo<ProgramOption>& info) {
    std::string name;
    for (const wchar_t* c = info.param.name; *c; ++c) name += static_cast<char>(*c);
    return name;
}

INSTANTIATE_TEST_SUITE_P(EveryProgramOption, ProgramOptions, ::testing::ValuesIn(kProgramOptions), OptionName);

}  // namespace
