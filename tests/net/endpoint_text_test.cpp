// Address, port, state and time texts of the endpoint views, and the columns each view builds from them.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "net/endpoint_text.h"

namespace {

using namespace lmvx::net;

constexpr unsigned kLoopback = 0x0100007F;   // 127.0.0.1, first octet lowest
const std::array<unsigned char, 16> kIPv6Loopback{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};

TEST(EndpointText, AddressAndPortFormats) {
    EXPECT_EQ(IPv4WithPortText(0x0A01A8C0, 443), L"192.168.1.10:443");
    EXPECT_EQ(PortText(65535), L"65535");
    // Each group is a little-endian word: the bytes of every group print swapped, as intended.
    EXPECT_EQ(IPv6WithPortText(kIPv6Loopback, 8080), L"[0:0:0:0:0:0:0:100]:8080");
    EXPECT_EQ(IPv6WithPortText({0xFE, 0x80, 0x12, 0x34}, 1), L"[80FE:3412:0:0:0:0:0:0]:1");
}

TEST(EndpointText, TcpStateTable) {
    const wchar_t* expected[] = {L"", L"CLOSED", L"LISTEN", L"SYN-SENT", L"SYN-RCVD", L"ESTABLISHED", L"FIN-WAIT1",
                                 L"FIN-WAIT2", L"CLOSE-WAIT", L"CLOSING", L"LAST-ACK", L"TIME-WAIT", L"DELETE-TCB", L""};
    for (unsigned state = 0; state < std::size(expected); ++state) EXPECT_STREQ(TcpStateText(state), expected[state]) << state;
}

using Texts = std::tuple<std::wstring, std::wstring, std::wstring>;
Texts TextsOf(const EndpointColumns& columns) { return {columns.localHost, columns.remoteHost, columns.status}; }

TEST(EndpointText, DialogColumns) {
    EXPECT_EQ(DialogTypeText(1, L"Unknown"), L"Unknown") << "TCP over IPv6 is typed unknown, as intended";
    const EndpointFields tcp6{.protocol = 1, .localIP6 = kIPv6Loopback, .localPort = 5000, .remotePort = 6000,
                              .state = 5};
    EXPECT_EQ(TextsOf(DialogColumns(tcp6)), Texts(L"0.0.0.0:5000", L"0.0.0.0:6000", L"ESTABLISHED"))
        << "printed as IPv4";
    const EndpointFields udp{.protocol = 16, .localAddress = kLoopback, .localPort = 53,
                             .localHostname = L"localhost", .remoteHostname = L"ignored"};
    EXPECT_EQ(TextsOf(DialogColumns(udp)), Texts(L"localhost:53", L"", L""))
        << "names the library has, shown without resolving";
}

TEST(EndpointText, PageShowsNamesOnlyWhenResolving) {
    const EndpointFields tcp6{.protocol = 1, .localIP6 = kIPv6Loopback, .remoteIP6 = kIPv6Loopback, .localPort = 5000,
                              .remotePort = 6000, .localHostname = L"here", .remoteHostname = L"there",
                              .stateText = L"ESTABLISHED"};
    EXPECT_EQ(TextsOf(PageColumns(tcp6, false)),
              Texts(L"[0:0:0:0:0:0:0:100]:5000", L"[0:0:0:0:0:0:0:100]:6000", L"ESTABLISHED"));
    EXPECT_EQ(TextsOf(PageColumns(tcp6, true)), Texts(L"here:5000", L"here:6000", L"ESTABLISHED"))
        << "the local name with the remote port, as intended";
    EndpointFields tcp{.remoteAddress = kLoopback, .remotePort = 2, .remoteHostname = L"there"};
    EXPECT_EQ(PageColumns(tcp, true).remoteHost, L"there:2");
    tcp.protocol = 17;
    EXPECT_EQ(PageColumns(tcp, true).remoteHost, L"");
}

TEST(EndpointText, CreationTimeAcrossADayBoundary) {
    const wchar_t* today = L"Today, %.2d:%.2d:%.2d.%.3d";
    const wchar_t* date = L"%.2d/%.2d/%.4d %.2d:%.2d:%.2d";
    const SYSTEMTIME created{2026, 12, 4, 31, 23, 59, 58, 7};
    EXPECT_EQ(CreationTimeText(created, created, today, date), L"Today, 23:59:58.007");
    EXPECT_EQ(CreationTimeText(created, {2027, 1, 5, 1, 0, 0, 1, 0}, today, date), L"31/12/2026 23:59:58");
    EXPECT_EQ(CreationTimeText(created, {2025, 12, 3, 31, 23, 59, 59, 0}, today, date), L"31/12/2026 23:59:58")
        << "same day and month of another year";
}

}  // namespace
