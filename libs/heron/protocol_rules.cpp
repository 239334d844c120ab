#include "protocol_rules.h"

#include <iterator>

namespace heron {

namespace {
constexpr int kIPv6Bit = 0x01;
constexpr int kUdpBit = 0x10;
}  // namespace

bool IsIPv6Protocol(int protocol) { return (protocol & kIPv6Bit) != 0; }

bool IsUdpProtocol(int protocol) { return (protocol & kUdpBit) != 0; }

int MakeProtocolCode(bool udp, bool ipv6) { return (udp ? kUdpBit : 0) | (ipv6 ? kIPv6Bit : 0); }

const wchar_t* ProtocolText(int protocol) {
    switch (protocol) {
    case 0x00: return L"TCP";
    case 0x01: return L"TCPv6";
    case 0x10: return L"UDP";
    case 0x11: return L"UDPv6";
    default: return L"";
    }
}

const wchar_t* TcpStateText(unsigned state) {
    // Indexed by the TCP state number of the system's tables (MIB_TCP_STATE_*).
    static const wchar_t* const kNames[] = {
        L"",           L"CLOSED",    L"LISTEN",    L"SYN-SENT",   L"SYN-RCVD", L"ESTABLISHED", L"FIN-WAIT1",
        L"FIN-WAIT2",  L"CLOSE-WAIT", L"CLOSING",  L"LAST-ACK",   L"TIME-WAIT", L"DELETE-TCB",
    };
    return state < std::size(kNames) ? kNames[state] : L"";
}

}  // namespace heron
