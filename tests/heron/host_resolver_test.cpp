// The lookup worker: the caller's wait is bounded however long a lookup takes, each address is looked up
// once, and results are shared through the name cache.
#include "host_resolver.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <string>

#include "message_pump.h"
#include "name_cache.h"

namespace heron {
namespace {

// An address of the documentation range: never a real host.
AddressKey TestAddress(std::uint8_t last) { return AddressKey{.address = {192, 0, 2, last}}; }

TEST(HostResolver, ReturnsWhileALookupRunsAndLooksEachAddressUpOnceForEveryResolver) {
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    HostResolver slow([released](const AddressKey&) {
        released.wait();
        return std::wstring(L"slow.example");
    });
    const AddressKey pending = TestAddress(1);

    // The lookup cannot finish before it is released, so Resolve can only come back by its budget.
    EXPECT_FALSE(slow.Resolve({pending}, std::chrono::milliseconds(50)));
    std::wstring found;
    EXPECT_FALSE(FindCachedName(pending, found));
    // Asking again does not queue the address a second time and does not wait for it.
    EXPECT_FALSE(slow.Resolve({pending}, std::chrono::milliseconds(50)));

    release.set_value();
    ASSERT_TRUE(lmvx_test::PollUntil([&] { return FindCachedName(pending, found); }));
    EXPECT_EQ(std::wstring(L"slow.example"), found);

    // Each address is looked up once, a found name and the lack of one alike; IPv4 and IPv6 keys are apart; the
    // names stay for every later resolver.
    const AddressKey four = TestAddress(2), nameless = TestAddress(3);
    AddressKey six = four;
    six.ipv6 = true;
    std::atomic<int> lookups{0};
    {
        HostResolver resolver([&lookups](const AddressKey& key) {
            ++lookups;
            return std::wstring(key.address[3] == 3 ? L"" : key.ipv6 ? L"six.example" : L"four.example");
        });
        ASSERT_TRUE(resolver.Resolve({four, four, nameless, six}, std::chrono::seconds(10)));
        ASSERT_TRUE(resolver.Resolve({four, nameless, six}, std::chrono::seconds(10)));
    }
    HostResolver second([&lookups](const AddressKey&) { return ++lookups, std::wstring(L"other.example"); });
    EXPECT_TRUE(second.Resolve({four, nameless, six}, std::chrono::seconds(10)));
    EXPECT_EQ(3, lookups.load());
    const std::pair<AddressKey, const wchar_t*> names[] = {{four, L"four.example"}, {six, L"six.example"}, {nameless, L""}};
    for (const auto& [key, expected] : names) {
        std::wstring name = L"x";
        ASSERT_TRUE(FindCachedName(key, name)) << expected;
        EXPECT_EQ(std::wstring(expected), name);
    }
}

}  // namespace
}  // namespace heron
