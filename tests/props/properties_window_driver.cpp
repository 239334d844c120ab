#include "properties_window_driver.h"

#include <commctrl.h>

#include "window_texts.h"

namespace props_test {
namespace {

struct FrameSearch {
    std::wstring suffix;
    std::vector<HWND> found;
};

BOOL CALLBACK CollectFrame(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<FrameSearch*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    if (processId != GetCurrentProcessId()) return TRUE;
    const std::wstring caption = lmvx_test::WindowText(window);
    if (caption.size() >= search->suffix.size() &&
        caption.compare(caption.size() - search->suffix.size(), search->suffix.size(), search->suffix) == 0) {
        search->found.push_back(window);
    }
    return TRUE;
}

TreeItemSeen ReadItem(HWND tree, HTREEITEM item) {
    wchar_t text[256] = {};
    TVITEMW data = {};
    data.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_PARAM | TVIF_HANDLE;
    data.hItem = item;
    data.pszText = text;
    data.cchTextMax = 256;
    TreeView_GetItem(tree, &data);
    return {text, data.iImage, reinterpret_cast<HWND>(data.lParam), item};
}

}  // namespace

std::vector<HWND> PropertiesFramesOf(unsigned pid) {
    FrameSearch search{L"(Process " + std::to_wstring(pid) + L")", {}};
    EnumWindows(CollectFrame, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::vector<TreeItemSeen> ReadPageTree(HWND tree) {
    std::vector<TreeItemSeen> items;
    HTREEITEM root = TreeView_GetRoot(tree);
    if (!root) return items;
    items.push_back(ReadItem(tree, root));
    for (HTREEITEM child = TreeView_GetChild(tree, root); child; child = TreeView_GetNextSibling(tree, child)) {
        items.push_back(ReadItem(tree, child));
    }
    return items;
}

std::vector<HWND> VisiblePages(HWND frame) {
    std::vector<HWND> visible;
    for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t className[32] = {};
        GetClassNameW(child, className, 32);
        if (std::wstring(className) == L"#32770" && IsWindowVisible(child)) visible.push_back(child);
    }
    return visible;
}

}  // namespace props_test
