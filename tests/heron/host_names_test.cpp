// Host names of loopback endpoints: looked up in bounded time, shared between lists, never for 0.0.0.0.
#include "test_sockets.h"

#include <gtest/gtest.h>

#include <string>

#include "heron.h"
#include "list_helpers.h"

namespace heron::test {
namespace {

class LoopbackNames : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(winsock_.Started());
        listener_ = ListenOnLoopback(AF_INET);
        ASSERT_TRUE(listener_);
        client_ = ConnectToLoopback(AF_INET, LocalPortOf(listener_));
        ASSERT_TRUE(client_);
        server_ = AcceptOne(listener_);
        udp_ = BindUdpOnLoopback(AF_INET);
        ASSERT_TRUE(udp_);
        owner_ = OwnerOf(kProtocolTcp, LocalPortOf(listener_));
        ASSERT_EQ(1, list_.Init());
        ASSERT_EQ(1, list_.QueryProcessList(owner_.processId));
    }

    // Resolves until the listener has a name; a name the resolver is slow to find shows at a later call,
    // each call returning after a bounded wait. A loopback address without a name stays empty.
    _CONNECTIONOBJECT ResolvedListener() {
        constexpr int kRounds = 100;
        constexpr DWORD kPauseMs = 50;
        for (int round = 0; round < kRounds; ++round) {
            if (round > 0) Sleep(kPauseMs);
            EXPECT_EQ(1, list_.ResolveAddresses());
            const auto item = FindByPorts(list_, kProtocolTcp, LocalPortOf(listener_), 0);
            if (!item) break;
            if (item->GetLocalHostname()[0] != L'\0') return *item;
        }
        return FindByPorts(list_, kProtocolTcp, LocalPortOf(listener_), 0).value_or(_CONNECTIONOBJECT{});
    }

    WinsockSession winsock_;
    Socket listener_, client_, server_, udp_;
    _CONNECTIONLIST list_;
    EndpointOwner owner_;
};

TEST_F(LoopbackNames, ResolvingReturnsAndGivesTheSameNameForTheSameAddress) {
    const _CONNECTIONOBJECT listener = ResolvedListener();
    ASSERT_NE(0u, listener.GetGenericID());
    const std::wstring name = listener.GetLocalHostname();
    // The client's local and remote address are both 127.0.0.1 too.
    const auto client = FindByPorts(list_, kProtocolTcp, LocalPortOf(client_), LocalPortOf(listener_));
    ASSERT_TRUE(client.has_value());
    EXPECT_EQ(name, client->GetLocalHostname());
    EXPECT_EQ(name, client->GetRemoteHostname());
    if (name.empty()) GTEST_SKIP() << "the resolver has no name for 127.0.0.1";
}

TEST_F(LoopbackNames, ANameIsNotTheNumericAddress) {
    const std::wstring name = ResolvedListener().GetLocalHostname();
    if (name.empty()) GTEST_SKIP() << "the resolver has no name for 127.0.0.1";
    EXPECT_NE(std::wstring(L"127.0.0.1"), name);
}

TEST_F(LoopbackNames, UnspecifiedAddressesGetNoName) {
    ResolvedListener();
    const auto udp = FindByPorts(list_, kProtocolUdp, LocalPortOf(udp_), 0);
    ASSERT_TRUE(udp.has_value());
    EXPECT_EQ(0u, udp->GetRemoteAddress());
    EXPECT_EQ(std::wstring(), udp->GetRemoteHostname());
}

TEST_F(LoopbackNames, AnotherListShowsNamesFoundBeforeWithoutResolving) {
    const std::wstring name = ResolvedListener().GetLocalHostname();
    if (name.empty()) GTEST_SKIP() << "the resolver has no name for 127.0.0.1";
    _CONNECTIONLIST other;
    ASSERT_EQ(1, other.Init());
    ASSERT_EQ(1, other.QueryProcessList(owner_.processId));
    const auto listener = FindByPorts(other, kProtocolTcp, LocalPortOf(listener_), 0);
    ASSERT_TRUE(listener.has_value());
    EXPECT_EQ(name, listener->GetLocalHostname());
}

}  // namespace
}  // namespace heron::test
