// Texts of the endpoint views, from plain values: addresses, ports, TCP states, the creation time and the
// three list columns of the endpoints dialog and of the Network page. No window and no system call here.
#pragma once
#include <windows.h>

#include <array>
#include <string>

namespace lmvx::net {

// What the views read of one endpoint.
struct EndpointFields {
    int protocol = 0;                    // 0 TCP, 1 TCP over IPv6, 16 UDP, 17 UDP over IPv6
    unsigned localAddress = 0;           // IPv4, first octet in the lowest byte
    unsigned remoteAddress = 0;
    std::array<unsigned char, 16> localIP6{};
    std::array<unsigned char, 16> remoteIP6{};
    unsigned localPort = 0;
    unsigned remotePort = 0;
    std::wstring localHostname;
    std::wstring remoteHostname;
    unsigned state = 0;
    std::wstring stateText;              // the library's spelling, shown by the Network page
    std::wstring protocolText;           // the library's spelling, shown by the Network page
};

struct EndpointColumns {
    std::wstring localHost;
    std::wstring remoteHost;
    std::wstring status;
};

std::wstring IPv4Text(unsigned address);                          // "%i.%i.%i.%i"
std::wstring IPv4WithPortText(unsigned address, unsigned port);   // "%i.%i.%i.%i:%d"
std::wstring PortText(unsigned port);                             // "%d"
// "[%X:...:%X]:%d"; each group is the little-endian word at its offset, so the two bytes of a group print
// swapped against the usual notation: intended, this is the output the Network page has always shown.
std::wstring IPv6WithPortText(const std::array<unsigned char, 16>& address, unsigned port);
std::wstring NameWithPortText(const std::wstring& name, unsigned port);   // "%s:%d"

// "LISTEN", "ESTABLISHED", ... for states 1 to 12; empty for any other (UDP has none).
const wchar_t* TcpStateText(unsigned state);

// The dialog's type column: "TCP" for protocol 0, "UDP" for 16, unknownText for any other; a TCP over IPv6
// endpoint is therefore typed unknown there (intended).
std::wstring DialogTypeText(int protocol, const std::wstring& unknownText);

// The dialog's columns: names whenever the library has them, otherwise IPv4 texts (for IPv6 endpoints too:
// intended), no remote text for UDP, the state from the table above.
EndpointColumns DialogColumns(const EndpointFields& endpoint);

// The Network page's columns: names only when resolving is on, IPv6 texts for IPv6 endpoints, the state as
// the library spells it. For TCP over IPv6 the remote column shows the local host name with the remote
// port when resolving finds one: intended, this is how the page has always labelled such connections.
EndpointColumns PageColumns(const EndpointFields& endpoint, bool resolve);

// The creation time: todayFormat (hour, minute, second, millisecond) when created on today's date,
// otherwise dateFormat (day, month, year, hour, minute, second; milliseconds passed but not printed).
std::wstring CreationTimeText(const SYSTEMTIME& created, const SYSTEMTIME& today, const wchar_t* todayFormat,
                              const wchar_t* dateFormat);

}  // namespace lmvx::net
