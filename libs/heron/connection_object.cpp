#include "heron.h"

#include "protocol_rules.h"

namespace heron {

unsigned _CONNECTIONOBJECT::GetGenericID() const { return genericId_; }
int _CONNECTIONOBJECT::GetProtocol() const { return protocol_; }
const wchar_t* _CONNECTIONOBJECT::GetProtocolStr() const { return ProtocolText(protocol_); }
unsigned _CONNECTIONOBJECT::GetLocalAddress() const { return localAddress_; }
unsigned _CONNECTIONOBJECT::GetRemoteAddress() const { return remoteAddress_; }
const unsigned char* _CONNECTIONOBJECT::GetLocalIP6Address() const { return localIP6Address_; }
const unsigned char* _CONNECTIONOBJECT::GetRemoteIP6Address() const { return remoteIP6Address_; }
unsigned _CONNECTIONOBJECT::GetLocalPort() const { return localPort_; }
unsigned _CONNECTIONOBJECT::GetRemotePort() const { return remotePort_; }
const wchar_t* _CONNECTIONOBJECT::GetLocalHostname() const { return localHostname_; }
const wchar_t* _CONNECTIONOBJECT::GetRemoteHostname() const { return remoteHostname_; }
unsigned _CONNECTIONOBJECT::GetState() const { return state_; }
const wchar_t* _CONNECTIONOBJECT::GetStateStr() const { return TcpStateText(state_); }
unsigned long long _CONNECTIONOBJECT::GetCreationTimeLi() const { return creationTime_; }

SYSTEMTIME _CONNECTIONOBJECT::GetCreationTime() const {
    SYSTEMTIME local{};
    if (creationTime_ == 0) return local;
    FILETIME utcFileTime{};
    utcFileTime.dwLowDateTime = static_cast<DWORD>(creationTime_);
    utcFileTime.dwHighDateTime = static_cast<DWORD>(creationTime_ >> 32);
    SYSTEMTIME utc{};
    if (!FileTimeToSystemTime(&utcFileTime, &utc)) return local;
    // The time zone rules of the endpoint's own date, not of today, decide the local time.
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local)) return SYSTEMTIME{};
    return local;
}

}  // namespace heron
