// The page tree of a properties window: items, images, and the bounded walks over it.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <vector>

#include "common/unique_resource.h"
#include "props/property_pages.h"

namespace lmvx {

// The tree's 16 x 16 image list: the process's own small icon (or the program's process icon when it has
// none), then the program's icons for the twelve tree positions.
UniqueImageList CreatePageImageList(HICON processIcon);

// The root item (the process's name, image 0) and under it one item per page in treeOrder (indexes into
// pages), each with its label, the image of its tree position and the page window as item data.
void InsertPageItems(HWND tree, const wchar_t* processName, PropertyPageTable pages,
                     const ProcessPropertiesContext& context, const std::vector<size_t>& treeOrder);

// Visits the items depth-first (first child, else next sibling) from the root, for at most 512 steps.
void WalkPageTree(HWND tree, const std::function<void(HTREEITEM)>& visit);

// The page window held by an item, null for the root.
HWND PageOfItem(HWND tree, HTREEITEM item);

}  // namespace lmvx
