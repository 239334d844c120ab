#include "protocol_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace heron {
namespace {

TEST(TcpStateText, NamesEveryStateOfTheSystemTables) {
    const struct {
        unsigned state;
        const wchar_t* text;
    } cases[] = {
        {1, L"CLOSED"},     {2, L"LISTEN"},     {3, L"SYN-SENT"},  {4, L"SYN-RCVD"},
        {5, L"ESTABLISHED"}, {6, L"FIN-WAIT1"}, {7, L"FIN-WAIT2"}, {8, L"CLOSE-WAIT"},
        {9, L"CLOSING"},    {10, L"LAST-ACK"},  {11, L"TIME-WAIT"}, {12, L"DELETE-TCB"},
    };
    for (const auto& entry : cases) {
        EXPECT_EQ(std::wstring(entry.text), TcpStateText(entry.state)) << "state " << entry.state;
    }
}

TEST(TcpStateText, IsEmptyForUdpAndUnknownStates) {
    EXPECT_EQ(std::wstring(), TcpStateText(0));
    EXPECT_EQ(std::wstring(), TcpStateText(13));
    EXPECT_EQ(std::wstring(), TcpStateText(0xFFFFFFFFu));
}

TEST(ProtocolCode, BitZeroMeansIPv6) {
    EXPECT_FALSE(IsIPv6Protocol(MakeProtocolCode(false, false)));
    EXPECT_TRUE(IsIPv6Protocol(MakeProtocolCode(false, true)));
    EXPECT_FALSE(IsIPv6Protocol(MakeProtocolCode(true, false)));
    EXPECT_TRUE(IsIPv6Protocol(MakeProtocolCode(true, true)));
}

TEST(ProtocolCode, CodesAreThoseTheProgramKnows) {
    EXPECT_EQ(0, MakeProtocolCode(false, false));
    EXPECT_EQ(1, MakeProtocolCode(false, true));
    EXPECT_EQ(16, MakeProtocolCode(true, false));
    EXPECT_EQ(17, MakeProtocolCode(true, true));
    EXPECT_TRUE(IsUdpProtocol(16));
    EXPECT_TRUE(IsUdpProtocol(17));
    EXPECT_FALSE(IsUdpProtocol(0));
    EXPECT_FALSE(IsUdpProtocol(1));
}

TEST(ProtocolText, SpellsEachProtocolAndFamily) {
    EXPECT_EQ(std::wstring(L"TCP"), ProtocolText(MakeProtocolCode(false, false)));
    EXPECT_EQ(std::wstring(L"TCPv6"), ProtocolText(MakeProtocolCode(false, true)));
    EXPECT_EQ(std::wstring(L"UDP"), ProtocolText(MakeProtocolCode(true, false)));
    EXPECT_EQ(std::wstring(L"UDPv6"), ProtocolText(MakeProtocolCode(true, true)));
    EXPECT_EQ(std::wstring(), ProtocolText(2));
    EXPECT_EQ(std::wstring(), ProtocolText(-1));
}

}  // namespace
}  // namespace heron
