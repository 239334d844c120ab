// heron64.dll: the network library. Lists the TCP and UDP endpoints (IPv4 and IPv6) that one process owns,
// and looks up host names for their addresses.
//
// The program loads this library on first use (delay loading), so it exports functions and methods only,
// never data. _CONNECTIONOBJECT is a plain value: fixed-size fields, an inline constructor and trivial copy,
// so copies made by the program never call into the library. _CONNECTIONLIST keeps its contents behind one
// pointer; an all-zero _CONNECTIONLIST is a valid empty list that Init() can set up again.
#pragma once
#include <windows.h>

#include <memory>

#ifdef HERON_BUILD
#define HERON_API __declspec(dllexport)
#else
#define HERON_API __declspec(dllimport)
#endif

namespace heron {

// Protocol codes of GetProtocol(): bit 0 set means IPv6.
constexpr int kProtocolTcp = 0;
constexpr int kProtocolTcp6 = 1;
constexpr int kProtocolUdp = 16;
constexpr int kProtocolUdp6 = 17;

// Room for a host name, terminator included (a DNS name has at most 253 characters).
constexpr unsigned kHostnameCapacity = 256;

// One endpoint as it was when the list was queried.
class HERON_API _CONNECTIONOBJECT {
public:
    // Stable identity across queries of the same endpoint (protocol, owner, both addresses and ports);
    // never 0, and distinct within one query.
    unsigned GetGenericID() const;
    int GetProtocol() const;                       // kProtocolTcp, kProtocolTcp6, kProtocolUdp, kProtocolUdp6
    const wchar_t* GetProtocolStr() const;         // "TCP", "TCPv6", "UDP", "UDPv6"
    unsigned GetLocalAddress() const;              // IPv4, first octet in the lowest byte; 0 for IPv6
    unsigned GetRemoteAddress() const;
    const unsigned char* GetLocalIP6Address() const;   // 16 bytes in network order; all zero for IPv4
    const unsigned char* GetRemoteIP6Address() const;
    unsigned GetLocalPort() const;                 // host order
    unsigned GetRemotePort() const;                // 0 for UDP
    const wchar_t* GetLocalHostname() const;       // empty when no name is known
    const wchar_t* GetRemoteHostname() const;
    unsigned GetState() const;                     // TCP state 1 (closed) to 12 (delete TCB); 0 for UDP
    const wchar_t* GetStateStr() const;            // "LISTEN", "ESTABLISHED", ...; empty for UDP
    unsigned long long GetCreationTimeLi() const;  // FILETIME value (UTC); 0 when unknown
    SYSTEMTIME GetCreationTime() const;            // local time; all zero when unknown

private:
    friend class _CONNECTIONLIST;

    unsigned genericId_ = 0;
    int protocol_ = kProtocolTcp;
    unsigned localAddress_ = 0;
    unsigned remoteAddress_ = 0;
    unsigned char localIP6Address_[16] = {};
    unsigned char remoteIP6Address_[16] = {};
    unsigned localPort_ = 0;
    unsigned remotePort_ = 0;
    unsigned state_ = 0;
    unsigned long long creationTime_ = 0;
    wchar_t localHostname_[kHostnameCapacity] = {};
    wchar_t remoteHostname_[kHostnameCapacity] = {};
};

// The endpoints of one process. Used by one thread at a time; host name lookups run on a worker of the
// list and their results are shared by all lists of the process.
class HERON_API _CONNECTIONLIST {
public:
    _CONNECTIONLIST();
    ~_CONNECTIONLIST();
    _CONNECTIONLIST(const _CONNECTIONLIST&) = delete;
    _CONNECTIONLIST& operator=(const _CONNECTIONLIST&) = delete;

    int Init();     // prepares an empty list; 1 on success
    int Delete();   // frees everything and stops pending lookups; the list may be Init()ed again
    // Replaces the contents with the endpoints owned by the process; 1 on success. Names already known
    // (from earlier lookups of any list) are filled in at once.
    int QueryProcessList(DWORD processId);
    // Looks up host names for the addresses of the current endpoints. Waits a short, bounded time; names
    // still being looked up afterwards appear at a later query or call.
    int ResolveAddresses();
    unsigned GetItemCount() const;
    // A copy of the endpoint at index; an empty object (id 0) when the index is out of range.
    _CONNECTIONOBJECT GetItem(unsigned index) const;

private:
    struct Contents;
    void FillKnownHostnames();   // copies cached names into the current endpoints

    std::unique_ptr<Contents> contents_;
};

}  // namespace heron
