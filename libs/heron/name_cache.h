// Host names found so far, shared by every endpoint list of the process, so that a list that never looks
// names up itself still shows the ones another list found. An address whose lookup found no name is kept
// too (with an empty name), so it is not looked up again.
#pragma once
#include <string>

#include "address_key.h"

namespace heron {

// True when the address was looked up before; name is then its name, possibly empty.
bool FindCachedName(const AddressKey& key, std::wstring& name);
void StoreCachedName(const AddressKey& key, const std::wstring& name);

}  // namespace heron
