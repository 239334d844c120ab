// Finding and reading the process properties windows that the hosted main window opens.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

namespace props_test {

// The open properties windows of this test program for pid (their captions end in "(Process <pid>)").
std::vector<HWND> PropertiesFramesOf(unsigned pid);

struct TreeItemSeen {
    std::wstring text;
    int image = -1;
    HWND page = nullptr;   // item data: the page window, null for the root
    HTREEITEM item = nullptr;
};

// The root item, then its children in order.
std::vector<TreeItemSeen> ReadPageTree(HWND tree);

// The pages of the frame that are visible now.
std::vector<HWND> VisiblePages(HWND frame);

}  // namespace props_test
