// The option store against the real registry of the build's Wine prefix.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include "test_application.h"
#include "wren.h"

namespace {

using Block = std::array<BYTE, 52>;

Block PatternBlock(BYTE first) {
    Block block{};
    std::iota(block.begin(), block.end(), first);
    return block;
}

class OptionStore : public ::testing::Test {
protected:
    ScopedTestApplication application_{L"WrenOptionStoreTests"};
    wren::REGOPTIONS& store_ = wren::regOptions;
};

// Unwritten options read as their defaults (a block as nothing, its buffer untouched); written flags and numbers
// read back as last written, and every option lands in the Settings key with its registry type.
TEST_F(OptionStore, DefaultsUntilWrittenThenTheLastWriteInTheSettingsKeyWithItsRegistryType) {
    EXPECT_EQ(store_.GetOptionBOOL(L"SomeFlag", 0), 0);
    EXPECT_EQ(store_.GetOptionBOOL(L"SomeFlag", 1), 1);
    EXPECT_EQ(store_.GetOptionDWORD(L"SomeNumber", 1000u), 1000u);
    EXPECT_EQ(store_.GetOptionDWORD(L"SomeNumber", 3u), 3u);
    const Block untouched = PatternBlock(7);
    Block buffer = untouched;
    unsigned bytesRead = 1234;
    store_.GetOptionBINARY(L"SomeBlock", buffer.data(), sizeof(buffer), &bytesRead);
    EXPECT_EQ(bytesRead, 0u);
    EXPECT_EQ(buffer, untouched);

    for (int flag : {1, 0}) {
        store_.SetOptionBOOL(L"SomeFlag", flag);
        EXPECT_EQ(store_.GetOptionBOOL(L"SomeFlag", !flag), flag);
    }
    for (unsigned value : {0u, 100u, 3000u, 0x80000000u, 0xffffffffu, 500u}) {
        EXPECT_EQ(store_.SetOptionDWORD(L"SomeNumber", value), 1);
        EXPECT_EQ(store_.GetOptionDWORD(L"SomeNumber", value + 1), value);
    }
    const Block written = PatternBlock(1);
    EXPECT_EQ(store_.SetOptionBINARY(L"SomeBlock", written.data(), sizeof(written)), 1);

    EXPECT_STREQ(wren::GetSettingsKeyPath(), L"Software\\Orvane Software\\WrenOptionStoreTests\\Settings");
    const std::pair<const wchar_t*, RawValue> stored[] = {
        {L"SomeFlag", {true, REG_DWORD, {0, 0, 0, 0}}},
        {L"SomeNumber", {true, REG_DWORD, {0xF4, 0x01, 0, 0}}},   // 500, little-endian
        {L"SomeBlock", {true, REG_BINARY, std::vector<BYTE>(written.begin(), written.end())}},
    };
    for (const auto& [name, expected] : stored) {
        const RawValue value = ReadRawValue(name);
        EXPECT_TRUE(value.exists && value.type == expected.type && value.bytes == expected.bytes)
            << "value " << std::string(name, name + std::wcslen(name)) << " of type " << value.type;
    }
}

// Reads keep the Settings key open between calls; whatever happens to the key meanwhile, a read sees the
// registry as it is now.
TEST_F(OptionStore, ReadsFollowTheKeyWhenOthersChangeDeleteOrRecreateIt) {
    EXPECT_EQ(store_.GetOptionDWORD(L"Followed", 7), 7u) << "before the key exists";
    ASSERT_TRUE(store_.SetOptionDWORD(L"Followed", 1));
    EXPECT_EQ(store_.GetOptionDWORD(L"Followed", 7), 1u) << "the key was created after a read found none";

    const DWORD other = 2;
    ASSERT_TRUE(WriteRawValue(L"Followed", REG_DWORD, &other, sizeof other));
    EXPECT_EQ(store_.GetOptionDWORD(L"Followed", 7), 2u) << "written through another handle";

    const std::wstring settings = wren::GetSettingsKeyPath();
    ASSERT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, settings.c_str()), ERROR_SUCCESS);
    EXPECT_EQ(store_.GetOptionDWORD(L"Followed", 7), 7u) << "the key was deleted";
    ASSERT_TRUE(store_.SetOptionDWORD(L"Followed", 3));
    EXPECT_EQ(store_.GetOptionDWORD(L"Followed", 7), 3u) << "a new key in the old one's place";

    const Block block = PatternBlock(9);
    ASSERT_TRUE(store_.SetOptionBINARY(L"FollowedBlock", block.data(), sizeof block));
    ASSERT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, settings.c_str()), ERROR_SUCCESS);
    ASSERT_TRUE(store_.SetOptionBINARY(L"FollowedBlock", block.data(), 10));
    Block read{};
    unsigned bytesRead = 0;
    EXPECT_TRUE(store_.GetOptionBINARY(L"FollowedBlock", read.data(), sizeof read, &bytesRead));
    EXPECT_EQ(bytesRead, 10u);
}

// A value of another type than the option's reads as the option's default (or as no block); a shorter block
// is read and seen by its size, a longer one reads nothing and leaves the buffer alone.
TEST_F(OptionStore, AValueOfTheWrongTypeReadsAsTheDefaultAndBlocksOfOtherSizesAreSeenByTheirSize) {
    const std::wstring text = L"1";
    ASSERT_TRUE(WriteRawValue(L"UpdateInterval", REG_SZ, text.c_str(),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
    EXPECT_EQ(store_.GetOptionDWORD(L"UpdateInterval", 1000u), 1000u);
    const DWORD looksLikeANumber = 250;   // four binary bytes where a DWORD belongs
    ASSERT_TRUE(WriteRawValue(L"UpdateInterval", REG_BINARY, &looksLikeANumber, sizeof(looksLikeANumber)));
    EXPECT_EQ(store_.GetOptionDWORD(L"UpdateInterval", 1000u), 1000u);

    store_.SetOptionDWORD(L"TaskListColumns", 52);
    Block buffer{};
    unsigned bytesRead = 99;
    store_.GetOptionBINARY(L"TaskListColumns", buffer.data(), sizeof(buffer), &bytesRead);
    EXPECT_EQ(bytesRead, 0u);

    for (unsigned size : {48u, 56u}) {
        const std::vector<BYTE> stored(size, 0x5a);
        store_.SetOptionBINARY(L"TaskListColumns", stored.data(), size);
        const Block untouched = PatternBlock(9);
        buffer = untouched;
        bytesRead = 77;
        store_.GetOptionBINARY(L"TaskListColumns", buffer.data(), sizeof(buffer), &bytesRead);
        EXPECT_EQ(bytesRead, size <= sizeof(buffer) ? size : 0u) << size;
        if (size > sizeof(buffer)) { EXPECT_EQ(buffer, untouched); }
        if (size <= sizeof(buffer)) { EXPECT_TRUE(std::equal(stored.begin(), stored.end(), buffer.begin())) << size; }
    }
}

TEST_F(OptionStore, ConcurrentReadersAndWritersEachSeeTheirOwnValues) {
    constexpr unsigned kThreads = 4;
    constexpr unsigned kRounds = 150;
    std::vector<unsigned> mismatches(kThreads, 0);
    std::vector<std::thread> threads;
    for (unsigned thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([this, thread, &mismatches] {
            const std::wstring name = L"Concurrent" + std::to_wstring(thread);
            for (unsigned round = 0; round < kRounds; ++round) {
                const unsigned value = thread * 100000 + round;
                store_.SetOptionDWORD(name.c_str(), value);
                if (store_.GetOptionDWORD(name.c_str(), 0xffffffffu) != value) ++mismatches[thread];
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (unsigned thread = 0; thread < kThreads; ++thread) EXPECT_EQ(mismatches[thread], 0u) << "thread " << thread;
}

}  // namespace
