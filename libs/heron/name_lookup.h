// One reverse lookup through the system resolver (hosts file, DNS).
#pragma once
#include <string>

#include "address_key.h"

namespace heron {

// The host name of the address, or empty when it has none. Blocks for as long as the resolver takes;
// call it on a worker thread that has started Winsock.
std::wstring LookupHostName(const AddressKey& key);

}  // namespace heron
