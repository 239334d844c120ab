// Version data and icons per image path, loaded once per path and kept until the provider is deleted, so
// that every instance of one program shares them and the small icons sit once in the image list.
#pragma once
#include "unique_resource.h"
#include "version_info.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace kestrel::detail {

struct ImageEntry {
    VersionInfo version;
    HICON largeIcon = nullptr;   // owned by the entry's icons below, or the system's shared default
    HICON smallIcon = nullptr;
    int imageListIndex = 0;
    UniqueIcon ownedLarge;
    UniqueIcon ownedSmall;
};

class ImageCache {
public:
    bool Init();
    // The entry of an image path; "" gives the entry with the default icon and no version data.
    // The pointer stays valid until the cache is destroyed.
    const ImageEntry* Lookup(const std::wstring& path);
    HIMAGELIST ImageList() const { return imageList_.Get(); }

private:
    std::unique_ptr<ImageEntry> Load(const std::wstring& path);

    UniqueImageList imageList_;
    ImageEntry defaultEntry_;
    std::unordered_map<std::wstring, std::unique_ptr<ImageEntry>> entries_;   // key: path in lower case
};

}  // namespace kestrel::detail
