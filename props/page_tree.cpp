#include "props/page_tree.h"

#include "app/shared_icons.h"
#include "finch.h"
#include "resource.h"
#include "wren.h"

namespace lmvx {
namespace {

constexpr int kTreeWalkSteps = 512;

// Icon resources of the images 1 to 12, in image-list order.
constexpr unsigned short kPageImageIcons[] = {IDI_PROCESS, IDI_PROCESS, IDI_MEMORY, IDI_MEMORY, IDI_MODULE,
                                              IDI_KERNEL_OBJECT, IDI_KERNEL_OBJECT, IDI_PORT, IDI_MODULE,
                                              IDI_MODULE, IDI_THREAD, IDI_GROUP};

const wchar_t* LabelText(const PageLabel& label) {
    if (label.stringId != 0) return UIL_LangModule.GetLangString(label.stringId);
    return wren::HardcodeLangString(label.english, label.german);
}

HTREEITEM InsertItem(HWND tree, HTREEITEM parent, const wchar_t* text, int image, LPARAM data) {
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
    insert.item.pszText = const_cast<wchar_t*>(text);
    insert.item.iImage = image;
    insert.item.iSelectedImage = image;
    insert.item.lParam = data;
    return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

// The generic process icon in place of image 0, then the pages' images.
UniqueImageList BuildPageImageList() {
    const UINT depth = wren::IsOSWindows2000() ? ILC_COLOR24 : ILC_COLOR32;
    UniqueImageList images(ImageList_Create(16, 16, depth | ILC_MASK, 0, 18));
    if (!images) return images;
    ImageList_AddIcon(images.Get(), SharedIconById(IDI_PROCESS).small);
    for (unsigned short id : kPageImageIcons) ImageList_AddIcon(images.Get(), SharedIconById(id).small);
    return images;
}

}  // namespace

UniqueImageList CreatePageImageList(HICON processIcon) {
    // Converting thirteen icons costs tens of milliseconds under Wine before the first page can show: the
    // fixed images are converted once, and each window copies them and puts in its process's icon.
    static const UniqueImageList master = BuildPageImageList();
    UniqueImageList images(master ? ImageList_Duplicate(master.Get()) : nullptr);
    if (images) ImageList_SetBkColor(images.Get(), RGB(255, 255, 255));   // not part of what a copy takes
    // Image 0 must exist, or every page item would show its neighbour's picture: the generic icon stays
    // when the process has none.
    if (images && processIcon) ImageList_ReplaceIcon(images.Get(), 0, processIcon);
    return images;
}

void InsertPageItems(HWND tree, const wchar_t* processName, PropertyPageTable pages,
                     const ProcessPropertiesContext& context, const std::vector<size_t>& treeOrder) {
    HTREEITEM root = InsertItem(tree, TVI_ROOT, processName, 0, 0);
    for (size_t index : treeOrder) {
        const PropertyPage& page = pages[index];
        InsertItem(tree, root, LabelText(page.label), page.treePosition,
                   reinterpret_cast<LPARAM>(context.*page.window));
    }
}

void WalkPageTree(HWND tree, const std::function<void(HTREEITEM)>& visit) {
    HTREEITEM item = TreeView_GetRoot(tree);
    for (int step = 0; item && step < kTreeWalkSteps; ++step) {
        visit(item);
        HTREEITEM next = TreeView_GetChild(tree, item);
        item = next ? next : TreeView_GetNextSibling(tree, item);
    }
}

HWND PageOfItem(HWND tree, HTREEITEM item) {
    TVITEMW data = {};
    data.mask = TVIF_PARAM | TVIF_HANDLE;
    data.hItem = item;
    if (!TreeView_GetItem(tree, &data)) return nullptr;
    return reinterpret_cast<HWND>(data.lParam);
}

}  // namespace lmvx
