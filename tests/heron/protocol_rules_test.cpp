#include "protocol_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace heron {
namespace {

TEST(TcpStateText, NamesEveryStateOfTheSystemTablesAndNothingElse) {
    const wchar_t* expected[] = {L"",         L"CLOSED",    L"LISTEN",   L"SYN-SENT",  L"SYN-RCVD",
                                 L"ESTABLISHED", L"FIN-WAIT1", L"FIN-WAIT2", L"CLOSE-WAIT", L"CLOSING",
                                 L"LAST-ACK", L"TIME-WAIT", L"DELETE-TCB", L""};
    for (unsigned state = 0; state < std::size(expected); ++state)
        EXPECT_EQ(std::wstring(expected[state]), TcpStateText(state)) << "state " << state;
    EXPECT_EQ(std::wstring(), TcpStateText(0xFFFFFFFFu));
}

TEST(ProtocolCode, BitZeroIsIPv6BitFourIsUdpAndEachHasItsText) {
    const struct {
        bool udp, ipv6;
        int code;
        const wchar_t* text;
    } cases[] = {{false, false, 0, L"TCP"}, {false, true, 1, L"TCPv6"}, {true, false, 16, L"UDP"}, {true, true, 17, L"UDPv6"}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.code, MakeProtocolCode(c.udp, c.ipv6));
        EXPECT_EQ(c.ipv6, IsIPv6Protocol(c.code)) << c.code;
        EXPECT_EQ(c.udp, IsUdpProtocol(c.code)) << c.code;
        EXPECT_EQ(std::wstring(c.text), ProtocolText(c.code));
    }
    EXPECT_EQ(std::wstring(), ProtocolText(2));
    EXPECT_EQ(std::wstring(), ProtocolText(-1));
}

}  // namespace
}  // namespace heron
