#include "image_cache.h"

#include <shellapi.h>

namespace kestrel::detail {

namespace {

constexpr int SmallIconSize = 16;
constexpr int ImageListGrowth = 64;   // few reallocations while the list view may be drawing from it

std::wstring LowerCase(std::wstring text) {
    if (!text.empty()) CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

}  // namespace

bool ImageCache::Init() {
    imageList_.Reset(ImageList_Create(SmallIconSize, SmallIconSize, ILC_COLOR32 | ILC_MASK, ImageListGrowth,
                                      ImageListGrowth));
    // The system's shared application icon: never destroyed by us.
    defaultEntry_.largeIcon = LoadIconW(nullptr, IDI_APPLICATION);
    defaultEntry_.smallIcon = static_cast<HICON>(
        LoadImageW(nullptr, IDI_APPLICATION, IMAGE_ICON, SmallIconSize, SmallIconSize, LR_SHARED));
    if (!defaultEntry_.smallIcon) defaultEntry_.smallIcon = defaultEntry_.largeIcon;
    defaultEntry_.imageListIndex = imageList_ ? ImageList_ReplaceIcon(imageList_.Get(), -1, defaultEntry_.smallIcon) : -1;
    if (defaultEntry_.imageListIndex < 0) defaultEntry_.imageListIndex = 0;
    return imageList_.IsValid();
}

const ImageEntry* ImageCache::Lookup(const std::wstring& path) {
    if (path.empty()) return &defaultEntry_;
    std::wstring key = LowerCase(path);
    auto found = entries_.find(key);
    if (found == entries_.end()) found = entries_.emplace(std::move(key), Load(path)).first;
    return found->second.get();
}

std::unique_ptr<ImageEntry> ImageCache::Load(const std::wstring& path) {
    auto entry = std::make_unique<ImageEntry>();
    ReadVersionInfo(path, entry->version);
    HICON large = nullptr;
    HICON small = nullptr;
    if (ExtractIconExW(path.c_str(), 0, &large, &small, 1) == 0) large = small = nullptr;
    entry->ownedLarge.Reset(large);
    entry->ownedSmall.Reset(small);
    entry->largeIcon = large ? large : (small ? small : defaultEntry_.largeIcon);
    entry->smallIcon = small ? small : (large ? large : defaultEntry_.smallIcon);
    entry->imageListIndex = defaultEntry_.imageListIndex;
    if (imageList_ && entry->smallIcon != defaultEntry_.smallIcon) {
        const int index = ImageList_ReplaceIcon(imageList_.Get(), -1, entry->smallIcon);
        if (index >= 0) entry->imageListIndex = index;
    }
    return entry;
}

}  // namespace kestrel::detail
