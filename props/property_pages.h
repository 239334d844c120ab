// The pages of a process properties window, as the frame creates them and lists them in its tree.
#pragma once
#include <windows.h>

#include <span>

#include "props/properties_context.h"

namespace lmvx {

// When a page's tree item is inserted; a page is created either way, but without an item it cannot be shown.
enum class PageCondition {
    Always,
    QueryAccess,     // the process could be opened with PROCESS_QUERY_INFORMATION
    TokenQuery,      // and its token with TOKEN_QUERY
    ModuleSnapshot,  // a module snapshot of the process can be taken
};

// A tree label: a string of the language module, or (stringId 0) a fixed English / German pair.
struct PageLabel {
    unsigned stringId = 0;
    const wchar_t* english = nullptr;
    const wchar_t* german = nullptr;
};

struct PropertyPage {
    unsigned dialogId;
    PageLabel label;
    int treePosition;  // order under the root, and the index of its image in the tree's image list
    PageCondition condition;
    DLGPROC procedure;  // receives the context as the lParam of WM_INITDIALOG
    HWND ProcessPropertiesContext::*window;
};

// The pages in creation order. The main window composes this table from the subsystems' page procedures.
using PropertyPageTable = std::span<const PropertyPage>;

}  // namespace lmvx
