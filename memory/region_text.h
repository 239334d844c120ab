// Texts of a memory region's fields and the parse of a typed address. Pure: values in, values out.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace lmvx {

// Names of the state, type and protection values; other values are "0x%.8X". A free region's type and
// protection, and a protection of 0, read `undefined` (the caller's language).
std::wstring RegionStateText(uint32_t state);
std::wstring RegionTypeText(uint32_t state, uint32_t type, std::wstring_view undefined);
// By exact value: modifier bits such as PAGE_GUARD make it a number.
std::wstring RegionProtectText(uint32_t state, uint32_t protect, std::wstring_view undefined);
// "0x%.8X".
std::wstring Hex32Text(uint32_t value);

// The leading hexadecimal number of a text (an optional "0x", then digits; what follows is ignored), cut
// to 64 bits; 0 when there is none.
uint64_t ParseHexAddress(std::wstring_view text);

}  // namespace lmvx

namespace lmvx {

// What the Virtual Memory page writes into its address field after a read: inside a module the address
// and the resolver's name, else the name and the region's kind ("%s (MEM_PRIVATE)", ...).
std::wstring DescribeAddress(uint64_t address, bool inModule, std::wstring_view name, uint32_t state, uint32_t type);

// The page steps: `stepped` is the address one page on (or back); when the region there is not committed
// (or could not be queried, regionSize 0), the step goes on to the next region's start, or back to one page
// before the region.
uint64_t NextPageAddress(uint64_t stepped, uint32_t state, uint64_t regionBase, uint64_t regionSize);
uint64_t PreviousPageAddress(uint64_t stepped, uint32_t state, uint64_t regionBase);

}  // namespace lmvx
