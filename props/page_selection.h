// Which pages of a properties window get a tree item, and in which order: values in, values out.
#pragma once
#include <string>
#include <vector>

#include "props/property_pages.h"

namespace lmvx {

// What the frame could open of the process when it built its tree.
struct ProcessAccess {
    bool query = false;           // PROCESS_QUERY_INFORMATION
    bool token = false;           // TOKEN_QUERY on its token
    bool moduleSnapshot = false;  // a module snapshot could be taken
};

bool PageConditionHolds(PageCondition condition, const ProcessAccess& access);

// Indexes into pages of the rows that get a tree item, in tree order (by tree position): rows without a
// procedure and rows whose condition fails are left out.
std::vector<size_t> TreeOrder(PropertyPageTable pages, const ProcessAccess& access);

// The exit notice for an exit code, from its format (one %d for the signed code, one %X for the same code).
std::wstring FormatExitNotice(const wchar_t* format, unsigned long exitCode);

}  // namespace lmvx
