#include "net/endpoint_text.h"

#include "finch.h"

namespace lmvx::net {
namespace {

constexpr int kProtocolTcp = 0;
constexpr int kProtocolTcp6 = 1;
constexpr int kProtocolUdp = 16;

template <typename... Values>
std::wstring Format(const wchar_t* format, Values... values) {
    wchar_t text[512] = {};
    APIP_FormatString(text, sizeof text, format, values...);
    return text;
}

int Octet(unsigned address, int index) { return static_cast<int>((address >> (8 * index)) & 0xFF); }

int Group(const std::array<unsigned char, 16>& address, int index) {
    return address[2 * index] | (address[2 * index + 1] << 8);
}

bool IsIPv6(int protocol) { return (protocol & 1) != 0; }

}  // namespace

std::wstring IPv4Text(unsigned address) {
    return Format(L"%i.%i.%i.%i", Octet(address, 0), Octet(address, 1), Octet(address, 2), Octet(address, 3));
}

std::wstring IPv4WithPortText(unsigned address, unsigned port) {
    return Format(L"%i.%i.%i.%i:%d", Octet(address, 0), Octet(address, 1), Octet(address, 2), Octet(address, 3),
                  static_cast<int>(port));
}

std::wstring PortText(unsigned port) { return Format(L"%d", static_cast<int>(port)); }

std::wstring IPv6WithPortText(const std::array<unsigned char, 16>& address, unsigned port) {
    return Format(L"[%X:%X:%X:%X:%X:%X:%X:%X]:%d", Group(address, 0), Group(address, 1), Group(address, 2),
                  Group(address, 3), Group(address, 4), Group(address, 5), Group(address, 6), Group(address, 7),
                  static_cast<int>(port));
}

std::wstring NameWithPortText(const std::wstring& name, unsigned port) {
    return Format(L"%s:%d", name.c_str(), static_cast<int>(port));
}

const wchar_t* TcpStateText(unsigned state) {
    static const wchar_t* const kStates[] = {L"CLOSED",     L"LISTEN",    L"SYN-SENT",   L"SYN-RCVD",
                                             L"ESTABLISHED", L"FIN-WAIT1", L"FIN-WAIT2",  L"CLOSE-WAIT",
                                             L"CLOSING",    L"LAST-ACK",  L"TIME-WAIT",  L"DELETE-TCB"};
    return state >= 1 && state <= std::size(kStates) ? kStates[state - 1] : L"";
}

std::wstring DialogTypeText(int protocol, const std::wstring& unknownText) {
    if (protocol == kProtocolTcp) return L"TCP";
    if (protocol == kProtocolUdp) return L"UDP";
    return unknownText;
}

EndpointColumns DialogColumns(const EndpointFields& endpoint) {
    EndpointColumns columns;
    columns.localHost = endpoint.localHostname.empty() ? IPv4WithPortText(endpoint.localAddress, endpoint.localPort)
                                                       : NameWithPortText(endpoint.localHostname, endpoint.localPort);
    if (endpoint.protocol != kProtocolUdp) {
        columns.remoteHost = endpoint.remoteHostname.empty()
                                 ? IPv4WithPortText(endpoint.remoteAddress, endpoint.remotePort)
                                 : NameWithPortText(endpoint.remoteHostname, endpoint.remotePort);
    }
    columns.status = TcpStateText(endpoint.state);
    return columns;
}

EndpointColumns PageColumns(const EndpointFields& endpoint, bool resolve) {
    EndpointColumns columns;
    if (resolve && !endpoint.localHostname.empty()) {
        columns.localHost = NameWithPortText(endpoint.localHostname, endpoint.localPort);
    } else if (IsIPv6(endpoint.protocol)) {
        columns.localHost = IPv6WithPortText(endpoint.localIP6, endpoint.localPort);
    } else {
        columns.localHost = IPv4WithPortText(endpoint.localAddress, endpoint.localPort);
    }
    if (endpoint.protocol == kProtocolTcp) {
        columns.remoteHost = resolve && !endpoint.remoteHostname.empty()
                                 ? NameWithPortText(endpoint.remoteHostname, endpoint.remotePort)
                                 : IPv4WithPortText(endpoint.remoteAddress, endpoint.remotePort);
    } else if (endpoint.protocol == kProtocolTcp6) {
        columns.remoteHost = resolve && !endpoint.localHostname.empty()
                                 ? NameWithPortText(endpoint.localHostname, endpoint.remotePort)
                                 : IPv6WithPortText(endpoint.remoteIP6, endpoint.remotePort);
    }
    columns.status = endpoint.stateText;
    return columns;
}

std::wstring CreationTimeText(const SYSTEMTIME& created, const SYSTEMTIME& today, const wchar_t* todayFormat,
                              const wchar_t* dateFormat) {
    const bool sameDay =
        created.wDay == today.wDay && created.wMonth == today.wMonth && created.wYear == today.wYear;
    if (sameDay) {
        return Format(todayFormat, created.wHour, created.wMinute, created.wSecond, created.wMilliseconds);
    }
    return Format(dateFormat, created.wDay, created.wMonth, created.wYear, created.wHour, created.wMinute,
                  created.wSecond, created.wMilliseconds);
}

}  // namespace lmvx::net
