// Names of protocols and TCP states, and the meaning of the protocol code's bits.
#pragma once

namespace heron {

// Bit 0 of a protocol code says IPv6; bit 4 says UDP.
bool IsIPv6Protocol(int protocol);
bool IsUdpProtocol(int protocol);
// The protocol code for a transport and an address family.
int MakeProtocolCode(bool udp, bool ipv6);
// "TCP", "TCPv6", "UDP", "UDPv6"; empty for a code this library never produces.
const wchar_t* ProtocolText(int protocol);
// "CLOSED" (1) to "DELETE-TCB" (12); empty for anything else, which includes UDP's 0.
const wchar_t* TcpStateText(unsigned state);

}  // namespace heron
